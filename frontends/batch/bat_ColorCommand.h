#pragma once

#include <bat_Subcommand.h>
#include <string>
#include <vector>

/// `orvex color NAME|#RRGGBB`: what a colour is made of.
class bat_ColorCommand : public bat_Subcommand
{
public:
    const char* Name() const override { return "color"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(bat_OptionSet& options) override;
    bat_ExitCode Run(const bat_Console& console) override;

private:
    std::vector<std::string> words_; ///< of the colour's name
    bool list_ = false;
    bool json_ = false;
};
