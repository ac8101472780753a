#pragma once

#include <string>
#include <utility>
#include <vector>

namespace CLI
{
class App;
}

/// What can stand in a subcommand's command line, as CLI11 was told of it.
struct bat_Words
{
    /// The type name of an option whose value is a file.
    static constexpr const char* FILE = "FILE";

    struct Option
    {
        std::vector<std::string> names; ///< with their dashes; empty for a positional
        std::string label;              ///< of its value, as help shows it
        std::string description;
        bool takesValue = true;
        bool takesMany = false;
        bool isFile = false;
        std::vector<std::string> values; ///< those allowed; empty where they cannot be listed
    };

    explicit bat_Words(const CLI::App& app);
    /// The words of the program that has this subcommand, and of all its subcommands.
    static std::pair<bat_Words, std::vector<bat_Words>> OfProgram(const CLI::App& subcommand);

    std::string name;
    std::string description;
    std::vector<Option> options;
    std::vector<Option> positionals; ///< in their order
};
