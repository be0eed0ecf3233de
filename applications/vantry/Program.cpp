#include "Program.h"

#include "Command.h"
#include "CommonOptions.h"
#include "Exceptions/BaseException.h"
#include "Failure.h"
#include "Output.h"
#include "Text.h"
#include "Version.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <sstream>

namespace Vantry { namespace Application {

namespace {

ExitStatus fail(ExitStatus status, std::string const & what)
{
    std::string line = "vantry: " + what;
    for (char & c : line)
        if (static_cast<unsigned char>(c) < ' ')
            c = ' '; // names may hold anything, but this is one line
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
    return status;
}

void declareCommonOptions(CLI::App & options, CommonOptions & common)
{
    options.add_flag("--json", common.json, "Give the result as JSON on standard output");
    options.add_flag("--quiet", common.quiet, "Show no progress bar");
    options
        .add_option("--dictionary", common.dictionary,
                    "Take sets and names from this schema file too, in place of built-in ones")
        ->type_name("FILE");
}

/// What has been delivered goes ahead of the line about the failure.
ExitStatus end(Failure const & failure, Output & output)
{
    output.flush();
    return fail(failure.status(), failure.what());
}

ExitStatus explainUsage(CLI::App const & options, std::string const & problem)
{
    std::vector<CLI::App *> const chosen = options.get_subcommands();
    std::string const command = chosen.empty() ? "" : chosen.front()->get_name() + " ";
    return fail(ExitStatus::WRONG_USAGE, problem + " (see vantry " + command + "--help)");
}

/// The parser takes an unknown command for an argument too many.
bool isUnknownCommand(CLI::App const & options, CLI::ParseError const & reason)
{
    return options.get_subcommands().empty() && dynamic_cast<CLI::ExtrasError const *>(&reason) != nullptr;
}

/// Help and version arrive as exceptions of the parser, like wrong usage.
ExitStatus endParsing(CLI::App const & options, CLI::ParseError const & reason, Output & output)
{
    if (reason.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success))
        return explainUsage(options, isUnknownCommand(options, reason)
                                         ? "there is no command or option " + options.remaining().front()
                                         : reason.what());

    std::ostringstream text;
    options.exit(reason, text, text);
    output.buffer().append(text.str());
    output.flush();
    return ExitStatus::DONE;
}

}

Program::Program() = default;

Program::~Program() = default;

void Program::add(std::unique_ptr<Command> command)
{
    commands_.push_back(std::move(command));
}

ExitStatus Program::run(int argumentCount, char const * const * arguments, Output & output)
{
    try
    {
        return parseAndRun(argumentCount, arguments, output);
    }
    catch (ReaderGone const &)
    {
        return ExitStatus::DONE;
    }
    catch (Failure const & failure)
    {
        return fail(failure.status(), failure.what());
    }
}

ExitStatus Program::parseAndRun(int argumentCount, char const * const * arguments, Output & output)
{
    CLI::App options("Reads, creates and modifies MXF files.", "vantry");
    options.set_version_flag("--version", "vantry " + narrow(Version::versionString()));
    options.get_formatter()->label("SUBCOMMAND", "COMMAND");
    options.require_subcommand(0, 1); // files may have the name of a command
    options.footer("Example: " + std::string(commands_.front()->example()));

    CommonOptions common;
    Command * chosen = nullptr;
    for (std::unique_ptr<Command> const & command : commands_)
    {
        CLI::App * const own = options.add_subcommand(command->name(), command->summary());
        own->group("Commands");
        own->footer("Example: " + std::string(command->example()));
        own->callback([&chosen, &command] { chosen = command.get(); });
        command->declareOptions(*own);
        declareCommonOptions(*own, common);
    }

    try
    {
        options.parse(argumentCount, arguments);
    }
    catch (CLI::ParseError const & reason)
    {
        return endParsing(options, reason, output);
    }
    if (chosen == nullptr)
        return explainUsage(options, "a command is missing");
    return runCommand(*chosen, common, output);
}

ExitStatus Program::runCommand(Command & command, CommonOptions const & common, Output & output)
{
    try
    {
        command.run(common, output);
        output.flush();
        return ExitStatus::DONE;
    }
    catch (Failure const & failure)
    {
        return end(failure, output);
    }
    catch (Exceptions::BaseException const & failure)
    {
        ExitStatus const status = output.anyText() ? ExitStatus::DAMAGED_INPUT : ExitStatus::FAILED;
        return end(Failure(status, command.fileInHand(), narrow(failure.message())), output);
    }
    catch (std::exception const & failure)
    {
        return end(Failure(ExitStatus::FAILED, command.fileInHand(), failure.what()), output);
    }
}

}}
