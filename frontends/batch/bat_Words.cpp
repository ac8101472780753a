#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <bat_Words.h>

namespace
{
/// CLI11 tells a set of values only in the name of the type: "TEXT:{oct,mod}".
std::vector<std::string> ValuesIn(const std::string& type)
{
    const std::size_t open = type.find('{');
    const std::size_t close = type.find('}', open == type.npos ? 0 : open);
    if (open == type.npos || close == type.npos)
        return {};
    return CLI::detail::split(type.substr(open + 1, close - open - 1), ',');
}
}

bat_Words::bat_Words(const CLI::App& app) : name(app.get_name()), description(app.get_description())
{
    for (const CLI::Option* one : app.get_options())
    {
        Option option;
        for (const std::string& letter : one->get_snames())
            option.names.push_back("-" + letter);
        for (const std::string& word : one->get_lnames())
            option.names.push_back("--" + word);
        option.label = option.names.empty() ? one->get_name(true) : one->get_option_text();
        option.description = one->get_description();
        option.takesValue = one->get_items_expected_max() > 0;
        option.takesMany = one->get_items_expected_max() > 1;
        const std::string type = one->get_type_name();
        option.isFile = type == FILE;
        option.values = ValuesIn(type);
        (option.names.empty() ? positionals : options).push_back(std::move(option));
    }
}

std::pair<bat_Words, std::vector<bat_Words>> bat_Words::OfProgram(const CLI::App& subcommand)
{
    const CLI::App& program = *subcommand.get_parent();
    std::vector<bat_Words> all;
    for (const CLI::App* one : program.get_subcommands({}))
        all.emplace_back(*one);
    return {bat_Words(program), std::move(all)};
}
