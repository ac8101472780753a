#include <bat_BashCompletion.h>
#include <bat_CompletionCommand.h>
#include <bat_Console.h>
#include <bat_OptionSet.h>
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

void bat_CompletionCommand::Declare(bat_OptionSet& options)
{
    app_ = &options.App();
    options.Value("SHELL", shell_, "bash or zsh", {.required = true, .values = {BASH, ZSH}});
}

bat_ExitCode bat_CompletionCommand::Run(const bat_Console& console)
{
    const auto [program, subcommands] = bat_Words::OfProgram(*app_);
    console.out << (shell_ == BASH ? bat_BashCompletion : bat_ZshCompletion)(program, subcommands);
    return bat_ExitCode::DONE;
}
