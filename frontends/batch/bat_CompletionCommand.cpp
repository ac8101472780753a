#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>
#include <bat_BashCompletion.h>
#include <bat_CompletionCommand.h>
#include <bat_Console.h>
#include <bat_ZshCompletion.h>
#include <ostream>

namespace
{
constexpr const char* BASH = "bash";
constexpr const char* ZSH = "zsh";
}

const char* bat_CompletionCommand::Summary() const
{
    return "print a script with which a shell completes command lines";
}

const char* bat_CompletionCommand::Footer() const
{
    return "Completed are subcommands, options, the values of options that have a few, and files.\n"
           "\n"
           "Exit codes: 0 printed, 2 wrong command line, 5 internal fault\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  source <(orvex completion bash)\n"
           "  orvex completion zsh > _orvex";
}

void bat_CompletionCommand::Declare(CLI::App& app)
{
    app_ = &app;
    app.add_option("SHELL", shell_, "bash or zsh")
        ->required()
        ->check(CLI::IsMember({BASH, ZSH}))
        ->option_text(" ");
}

bat_ExitCode bat_CompletionCommand::Run(const bat_Console& console)
{
    const CLI::App& program = *app_->get_parent();
    std::vector<bat_Words> subcommands;
    for (const CLI::App* subcommand : program.get_subcommands({}))
        subcommands.emplace_back(*subcommand);
    console.out << (shell_ == BASH ? bat_BashCompletion : bat_ZshCompletion)(bat_Words(program), subcommands);
    return bat_ExitCode::DONE;
}
