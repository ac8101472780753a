#pragma once

#include <bat_ExitCode.h>
#include <string>
#include <vector>

struct bat_Console;

/// The program `orvex`: finds the subcommand, runs it, and turns whatever happens into an exit code and a
/// sentence.
class bat_Driver
{
public:
    /// arguments without the program's name. Throws nothing.
    static bat_ExitCode Run(std::vector<std::string> arguments, const bat_Console& console) noexcept;
};
