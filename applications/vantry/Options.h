#pragma once

#include "Platform/Integers.h"

#include <optional>
#include <string>
#include <vector>

namespace Vantry { namespace Application {

/// Takes the declarations of what a command can be told. The targets are
/// filled in from the command line before the command runs.
///
/// Commands don't see the parser behind it: its header takes longer to compile
/// than all of a command.
class Options
{
public:
    virtual ~Options() = default;

    /// The one file that the command works on.
    virtual void file(std::string & target, char const * help) = 0;

    /// One file or more.
    virtual void files(std::vector<std::string> & target, char const * valueName, char const * help) = 0;

    /// A switch, off unless it is given.
    virtual void flag(char const * name, bool & target, char const * help) = 0;

    /// An option with a value, which the help calls `valueName`.
    virtual void text(char const * name, std::string & target, char const * valueName, char const * help) = 0;

    /// The same, without which the command has nothing to do.
    virtual void requiredText(char const * name, std::string & target, char const * valueName, char const * help) = 0;

    /// An option with a number from 0 on.
    virtual void number(char const * name, std::optional<UInt64> & target, char const * valueName,
                        char const * help) = 0;

    /// An option with a number, to be given once or more.
    virtual void numbers(char const * name, std::vector<unsigned> & target, char const * valueName,
                         char const * help) = 0;
};

}}
