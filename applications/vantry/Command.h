#pragma once

#include <string>

namespace Vantry { namespace Application {

class Options;
class Output;
struct CommonOptions;

/// One job of the program. A command is declared once and then run at most
/// once, with its options filled in.
class Command
{
public:
    virtual ~Command() = default;

    /// The word that chooses it on the command line.
    virtual char const * name() const = 0;

    /// What it does, in a sentence.
    virtual char const * summary() const = 0;

    /// A command line that shows it at work.
    virtual char const * example() const = 0;

    /// What `--json` makes of the result, for the help.
    virtual char const * jsonForm() const { return "Give the result as one JSON object on standard output"; }

    /// Adds the options and files of this command alone.
    virtual void declareOptions(Options & options) = 0;

    /// Does the job.
    ///
    /// \throws Failure, and what the library throws; a failure of the library
    ///         is laid to `fileInHand`.
    virtual void run(CommonOptions const & common, Output & output) = 0;

    /// The file that is being worked on, as the user named it.
    virtual std::string const & fileInHand() const = 0;
};

}}
