#include <bat_BashCompletion.h>

namespace
{
// Of its own: `program` is put in for NAME. The words of a shell end at "=", too: --tree=oct are three.
constexpr const char* HEAD = R"(# Completes the command lines of NAME in bash:
#   source <(NAME completion bash)

_NAME_files()
{
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_NAME_words()
{
    mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

_NAME()
{
    local cur=${COMP_WORDS[COMP_CWORD]} before=$((COMP_CWORD - 1)) place=0 i
    COMPREPLY=()
    if [[ $cur == '=' ]]; then
        cur=
    elif [[ ${COMP_WORDS[before]} == '=' ]]; then
        ((--before))
    fi
)";

std::string Joined(const std::vector<std::string>& words, const char* between)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

std::string Offer(const bat_Words::Option& option, const std::string& program)
{
    if (option.isFile)
        return "_" + program + "_files \"$cur\"";
    if (!option.values.empty())
        return "_" + program + "_words \"$cur\" '" + Joined(option.values, " ") + "'";
    return ":";
}

/// What is completed behind the subcommand.
std::string Case(const bat_Words& words, const std::string& program)
{
    std::string values;
    std::string takers;
    std::string names;
    for (const bat_Words::Option& option : words.options)
    {
        const std::string either = Joined(option.names, "|");
        names += (names.empty() ? "" : " ") + Joined(option.names, " ");
        if (!option.takesValue)
            continue;
        values += "        " + either + ") " + Offer(option, program) + "; return ;;\n";
        takers += (takers.empty() ? "            " : "|") + either;
    }
    if (!takers.empty())
        takers += ") [[ ${COMP_WORDS[i+1]} == '=' ]] && ((++i)); ((++i)) ;;\n";
    std::string places;
    for (std::size_t at = 0; at < words.positionals.size(); ++at)
    {
        const bat_Words::Option& one = words.positionals[at];
        places +=
            "        " + (one.takesMany ? "*" : std::to_string(at)) + ") " + Offer(one, program) + " ;;\n";
    }
    return "    " + words.name + ")\n        case ${COMP_WORDS[before]} in\n" + values +
           "        esac\n"
           "        for ((i = 2; i < COMP_CWORD; ++i)); do\n"
           "            case ${COMP_WORDS[i]} in\n" +
           takers +
           "            -*) ;;\n"
           "            *) ((++place)) ;;\n"
           "            esac\n"
           "        done\n"
           "        if [[ $cur == -* ]]; then\n            _" +
           program + "_words \"$cur\" '" + names +
           "'\n            return\n        fi\n        case $place in\n" + places +
           "        esac\n        ;;\n";
}
}

std::string bat_BashCompletion(const bat_Words& program, const std::vector<bat_Words>& subcommands)
{
    std::string head = HEAD;
    for (std::size_t at = head.find("NAME"); at != head.npos; at = head.find("NAME", at))
        head.replace(at, 4, program.name);
    std::string first;
    std::string cases;
    for (const bat_Words& words : subcommands)
    {
        first += words.name + ' ';
        cases += Case(words, program.name);
    }
    for (const bat_Words::Option& option : program.options)
        first += Joined(option.names, " ") + ' ';
    return head + "    if ((COMP_CWORD == 1)); then\n        _" + program.name + "_words \"$cur\" '" + first +
           "'\n        return\n    fi\n    case ${COMP_WORDS[1]} in\n" + cases +
           "    esac\n}\n\ncomplete -F _" + program.name + ' ' + program.name + '\n';
}
