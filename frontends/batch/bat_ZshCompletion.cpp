#include <bat_ZshCompletion.h>

namespace
{
/// For a place between single quotes; what _arguments and _describe take for marks of their own stands behind
/// a backslash.
std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (const char c : text)
    {
        if (c == '\'')
            escaped += "'\\'";
        else if (c == ':' || c == '[' || c == ']' || c == '\\')
            escaped += '\\';
        escaped += c == '\n' ? ' ' : c;
    }
    return escaped;
}

/// ":label:action" of a value.
std::string Value(const bat_Words::Option& option)
{
    std::string text = ":" + Escaped(option.label) + ":";
    if (option.isFile)
        return text + "_files";
    if (option.values.empty())
        return text;
    text += '(';
    for (const std::string& value : option.values)
        text += (text.back() == '(' ? "" : " ") + Escaped(value);
    return text + ')';
}

std::string Arguments(const bat_Words& words)
{
    std::string text;
    for (const bat_Words::Option& option : words.options)
        for (const std::string& name : option.names)
            text += " \\\n            '" + name + (option.takesValue && name.starts_with("--") ? "=[" : "[") +
                    Escaped(option.description) + "]" + (option.takesValue ? Value(option) : "") + "'";
    for (std::size_t at = 0; at < words.positionals.size(); ++at)
        text += " \\\n            '" + (words.positionals[at].takesMany ? "*" : std::to_string(at + 1)) +
                Value(words.positionals[at]) + "'";
    return text;
}
}

std::string bat_ZshCompletion(const bat_Words& program, const std::vector<bat_Words>& subcommands)
{
    std::string list;
    std::string cases;
    for (const bat_Words& words : subcommands)
    {
        list += "            '" + words.name + ":" + Escaped(words.description) + "'\n";
        cases += "        " + words.name + ")\n            _arguments" + Arguments(words) + " ;;\n";
    }
    const std::string function = "_" + program.name;
    return "#compdef " + program.name + "\n# Completes the command lines of " + program.name +
           " in zsh: write this to a file " + function + "\n# in a folder of $fpath.\n\n" + function +
           "()\n{\n    local context state state_descr line\n    typeset -A opt_args\n    local -a "
           "subcommands\n"
           "    _arguments -C" +
           Arguments(program) +
           " \\\n            '1:subcommand:->subcommand' '*::argument:->argument'\n"
           "    case $state in\n    subcommand)\n        subcommands=(\n" +
           list +
           "        )\n        _describe subcommand subcommands ;;\n"
           "    argument)\n        case $line[1] in\n" +
           cases +
           "        esac ;;\n    esac\n}\n\n"
           "if [[ $funcstack[1] == " +
           function + " ]]; then\n    " + function + " \"$@\"\nelse\n    compdef " + function + ' ' +
           program.name + "\nfi\n";
}
