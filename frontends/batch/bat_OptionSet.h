#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI
{
class App;
}

/// The options of one subcommand. What they are read into must outlive the parsing. With it no subcommand
/// need include CLI11, which is slow to compile.
class bat_OptionSet
{
public:
    explicit bat_OptionSet(CLI::App& app) : app_(app) {}

    /// What may be said of a value besides its name and text.
    struct Traits
    {
        bool required = false;
        bool isFile = false;
        std::string label = " ";              ///< what help shows behind the name
        std::vector<std::string> values = {}; ///< those allowed; empty where they cannot be listed
    };

    /// A name without dashes is a positional's.
    void Flag(const std::string& name, bool& value, const std::string& text);
    void Value(const std::string& name, std::string& value, const std::string& text, const Traits& traits);
    /// Stays empty where the option is not given.
    void Value(const std::string& name, std::optional<std::string>& value, const std::string& text,
               const Traits& traits);
    void Values(const std::string& name, std::vector<std::string>& values, const std::string& text,
                const Traits& traits);
    /// A whole number from least to most.
    void Number(const std::string& name, int& value, int least, int most, const std::string& text,
                const Traits& traits);

    const CLI::App& App() const { return app_; }

private:
    CLI::App& app_;
};
