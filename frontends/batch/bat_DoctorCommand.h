#pragma once

#include <bat_SelfTest.h>
#include <bat_Subcommand.h>

/// `orvex doctor`: what the program is made of, what it finds where it runs, and whether it works there.
class bat_DoctorCommand : public bat_Subcommand
{
public:
    explicit bat_DoctorCommand(std::span<const bat_SelfTest::Check> checks = bat_SelfTest::Checks())
        : checks_(checks)
    {}

    const char* Name() const override { return "doctor"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(bat_OptionSet& options) override;
    /// INTERNAL when a check fails.
    bat_ExitCode Run(const bat_Console& console) override;

private:
    std::span<const bat_SelfTest::Check> checks_;
    bool json_ = false;
};
