#include "DumpCommand.h"
#include "FileWindow.h"
#include "InfoCommand.h"
#include "Output.h"
#include "Program.h"
#include "UnwrapCommand.h"
#include "WrapCommand.h"

#include <csignal>
#include <cstdio>

int main(int argumentCount, char ** arguments)
{
    using namespace Vantry::Application;

    // A reader of the result that has gone, and a limit on the size of files,
    // show as a failed write then, and the command ends in order.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    endOnLostWindow();

    Program program;
    program.add(std::make_unique<DumpCommand>());
    program.add(std::make_unique<InfoCommand>());
    program.add(std::make_unique<UnwrapCommand>());
    program.add(std::make_unique<WrapCommand>());

    Output output(stdout);
    return static_cast<int>(program.run(argumentCount, arguments, output));
}
