#pragma once

#include <bat_Subcommand.h>
#include <string>

/// `orvex path PATH`: what a path of the scripting language is made of.
class bat_PathCommand : public bat_Subcommand
{
public:
    const char* Name() const override { return "path"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(bat_OptionSet& options) override;
    bat_ExitCode Run(const bat_Console& console) override;

private:
    std::string path_;
    bool json_ = false;
};
