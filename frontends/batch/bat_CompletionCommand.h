#pragma once

#include <bat_Subcommand.h>
#include <string>

namespace CLI
{
class App;
}

/// `orvex completion bash|zsh`: a script with which a shell completes the driver's command lines.
class bat_CompletionCommand : public bat_Subcommand
{
public:
    const char* Name() const override { return "completion"; }
    const char* Summary() const override;
    const char* Footer() const override;
    /// The options must be of a subcommand of the whole command line, which Run describes.
    void Declare(bat_OptionSet& options) override;
    bat_ExitCode Run(const bat_Console& console) override;

private:
    const CLI::App* app_ = nullptr;
    std::string shell_;
};
