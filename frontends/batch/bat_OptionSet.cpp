#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>
#include <bat_OptionSet.h>
#include <bat_Words.h>

namespace
{
void Describe(CLI::Option& option, const bat_OptionSet::Traits& traits)
{
    option.required(traits.required);
    if (traits.isFile)
    {
        option.type_name(bat_Words::FILE);
        option.check(
            [](const std::string& name) { return name.empty() ? "the name is empty" : std::string(); });
    }
    if (!traits.values.empty())
        option.check(CLI::IsMember(traits.values));
    option.option_text(traits.label);
}
}

void bat_OptionSet::Flag(const std::string& name, bool& value, const std::string& text)
{
    app_.add_flag(name, value, text);
}

void bat_OptionSet::Value(const std::string& name, std::string& value, const std::string& text,
                          const Traits& traits)
{
    Describe(*app_.add_option(name, value, text), traits);
}

void bat_OptionSet::Value(const std::string& name, std::optional<std::string>& value, const std::string& text,
                          const Traits& traits)
{
    Describe(*app_.add_option(name, value, text), traits);
}

void bat_OptionSet::Values(const std::string& name, std::vector<std::string>& values, const std::string& text,
                           const Traits& traits)
{
    Describe(*app_.add_option(name, values, text), traits);
}

void bat_OptionSet::Number(const std::string& name, int& value, int least, int most, const std::string& text,
                           const Traits& traits)
{
    CLI::Option* option = app_.add_option(name, value, text);
    option->check(CLI::Range(least, most));
    Describe(*option, traits);
}
