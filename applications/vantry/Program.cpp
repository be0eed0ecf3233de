#include "Program.h"

#include "Command.h"
#include "CommonOptions.h"
#include "Exceptions/BaseException.h"
#include "Failure.h"
#include "Options.h"
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

/// The parser takes -1 for the largest number that there is, and 0x10 for 16.
std::string noNumber(std::string const & text)
{
    bool const isNumber = text.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? "" : text + " is no number from 0 on";
}

/// Hands declarations to the parser.
class ParsedOptions : public Options
{
public:
    explicit ParsedOptions(CLI::App & parser) : parser_(parser) {}

    void file(std::string & target, char const * help) override
    {
        parser_.add_option("FILE", target, help)->required()->type_name("");
    }

    void files(std::vector<std::string> & target, char const * valueName, char const * help) override
    {
        parser_.add_option(valueName, target, help)->required()->type_name("");
    }

    void flag(char const * name, bool & target, char const * help) override { parser_.add_flag(name, target, help); }

    void text(char const * name, std::string & target, char const * valueName, char const * help) override
    {
        parser_.add_option(name, target, help)->type_name(valueName);
    }

    void requiredText(char const * name, std::string & target, char const * valueName, char const * help) override
    {
        parser_.add_option(name, target, help)->type_name(valueName)->required();
    }

    void number(char const * name, std::optional<UInt64> & target, char const * valueName, char const * help) override
    {
        parser_.add_option(name, target, help)->type_name(valueName)->check(noNumber);
    }

    void numbers(char const * name, std::vector<unsigned> & target, char const * valueName, char const * help) override
    {
        parser_.add_option(name, target, help)->type_name(valueName)->allow_extra_args(false)->check(noNumber);
    }

private:
    CLI::App & parser_;
};

void declareCommonOptions(Options & options, Command const & command, CommonOptions & common)
{
    options.flag("--json", common.json, command.jsonForm());
    options.flag("--quiet", common.quiet, "Show no progress bar");
    options.text("--dictionary", common.dictionary, "FILE",
                 "Take sets and names from this schema file too, in place of built-in ones");
}

/// What has been delivered goes ahead of the line about the failure.
ExitStatus end(Failure const & failure, Output & output)
{
    output.flush();
    return fail(failure.status(), failure.what());
}

bool isOption(std::string const & argument)
{
    return argument.size() > 1 && argument.front() == '-';
}

/// What the parser couldn't use. Without a command the first word ought to be
/// one.
std::string leftOver(std::string const & argument, bool hasCommand)
{
    if (isOption(argument))
        return "unknown option " + argument;
    return (hasCommand ? "unexpected argument " : "unknown command ") + argument;
}

/// The parser's text begins with the name of the option.
std::string wrongNumberOfValues(CLI::App const & command, std::string const & text)
{
    std::string const name = text.substr(0, text.find_first_of(": "));
    CLI::Option const * const option = command.get_option_no_throw(name);
    return option == nullptr ? text : "option " + name + " takes one " + option->get_type_name();
}

/// The parser's text ends with the option and its value.
std::string wrongValue(std::string const & text)
{
    std::size_t const colon = text.find(": ");
    return colon == std::string::npos ? text : "can't understand " + text.substr(colon + 2);
}

ExitStatus wrongUsage(std::string const & command, std::string const & problem)
{
    return fail(ExitStatus::WRONG_USAGE, command.empty() ? problem : command + ": " + problem);
}

ExitStatus explainUsage(CLI::App const & options, CLI::ParseError const & reason)
{
    std::vector<CLI::App *> const chosen = options.get_subcommands();
    CLI::App const & innermost = chosen.empty() ? options : *chosen.front();
    std::string const command = chosen.empty() ? "" : innermost.get_name();

    if (dynamic_cast<CLI::ExtrasError const *>(&reason) != nullptr)
    {
        // Those ahead of the command first; they aren't the command's.
        std::string const argument = options.remaining(true).front();
        bool const ahead = !options.remaining().empty() && isOption(argument);
        return wrongUsage(ahead ? "" : command, leftOver(argument, !chosen.empty()));
    }
    if (dynamic_cast<CLI::ArgumentMismatch const *>(&reason) != nullptr)
        return wrongUsage(command, wrongNumberOfValues(innermost, reason.what()));
    if (dynamic_cast<CLI::ConversionError const *>(&reason) != nullptr)
        return wrongUsage(command, wrongValue(reason.what()));
    return wrongUsage(command, reason.what());
}

/// Help and version arrive as exceptions of the parser, like wrong usage.
ExitStatus endParsing(CLI::App const & options, CLI::ParseError const & reason, Output & output)
{
    if (reason.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success))
        return explainUsage(options, reason);

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

        ParsedOptions declared(*own);
        command->declareOptions(declared);
        declareCommonOptions(declared, *command, common);
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
        return fail(ExitStatus::WRONG_USAGE, "a command is missing, see vantry --help");
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
        return end(Failure(status, command.fileInHand(), problemOf(failure)), output);
    }
    catch (std::exception const & failure)
    {
        return end(Failure(ExitStatus::FAILED, command.fileInHand(), failure.what()), output);
    }
}

}}
