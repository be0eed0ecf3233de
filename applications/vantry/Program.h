#pragma once

#include "ExitStatus.h"

#include <memory>
#include <string>
#include <vector>

namespace Vantry { namespace Application {

class Command;
class Output;
struct CommonOptions;

/// The frame around the commands: understands the command line, runs the
/// command it names, and turns every failure into a status and one line on
/// standard error.
class Program
{
public:
    Program();
    ~Program();

    void add(std::unique_ptr<Command> command);

    ExitStatus run(int argumentCount, char const * const * arguments, Output & output);

private:
    ExitStatus parseAndRun(int argumentCount, char const * const * arguments, Output & output);
    ExitStatus runCommand(Command & command, CommonOptions const & common, Output & output);

    std::vector<std::unique_ptr<Command>> commands_;
};

}}
