#pragma once

#include <bat_Subcommand.h>
#include <string>

/// `orvex classes [NAME]`: the classes that mementos can hold, and their attributes.
class bat_ClassesCommand : public bat_Subcommand
{
public:
    const char* Name() const override { return "classes"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(bat_OptionSet& options) override;
    bat_ExitCode Run(const bat_Console& console) override;

private:
    std::string name_;
    bool brief_ = false;
    bool json_ = false;
};
