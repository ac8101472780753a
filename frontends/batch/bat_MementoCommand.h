#pragma once

#include <bat_Subcommand.h>
#include <string>

/// `orvex memento FILE`: what a stored session holds.
class bat_MementoCommand : public bat_Subcommand
{
public:
    const char* Name() const override { return "memento"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(bat_OptionSet& options) override;
    bat_ExitCode Run(const bat_Console& console) override;

private:
    std::string file_;
    bool json_ = false;
};
