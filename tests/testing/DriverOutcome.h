#pragma once

#include <bat_Console.h>
#include <bat_Driver.h>
#include <sstream>
#include <string>
#include <vector>

/// Runs the driver inside this process: exit code, standard output and standard error, one behind the other.
inline std::string DriverOutcome(const std::vector<std::string>& words)
{
    std::ostringstream out;
    std::ostringstream err;
    bat_Console console{out, err};
    const int code = static_cast<int>(bat_Driver::Run(words, console));
    return std::to_string(code) + "\n" + out.str() + err.str();
}
