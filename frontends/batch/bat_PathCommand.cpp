#include <algorithm>
#include <bat_Console.h>
#include <bat_InputError.h>
#include <bat_JsonText.h>
#include <bat_OptionSet.h>
#include <bat_PathCommand.h>
#include <bat_PlainText.h>
#include <cctype>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <omu_PathFunctions.h>
#include <omu_PathString.h>
#include <ostream>

namespace
{
using Json = nlohmann::ordered_json;

constexpr const char* SCHEMA = "orvex.path/1";

std::string Text(const cow_String& text)
{
    return std::string(text.View());
}

const char* KindOf(const cow_String& part)
{
    switch (part[0])
    {
    case '.':
        return "member";
    case '(':
        return "call";
    case '[':
        return omu_GetBracketKeyPos(part, '[', 0) == 0 ? "key" : "index";
    default:
        return "root";
    }
}

bool IsOfName(char c)
{
    return c == '_' || std::isalnum(static_cast<unsigned char>(c)) != 0 || static_cast<signed char>(c) < 0;
}

std::string Sentence(const omu_PathString& path, std::size_t at, const std::string& why)
{
    const std::string_view text = path.AsString().View();
    const auto isStart = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    const auto before = std::count_if(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), isStart);
    return Text(path.AsString()) + ", character " + std::to_string(before + 1) + ": " + why;
}

/// Where and why a plain path has a name that is none: a path is split at its marks, whatever stands between.
std::string NameFault(const omu_PathString& path)
{
    std::size_t at = 0;
    for (const cow_String& part : path.GetPathAsList())
    {
        const std::string_view text = part.View();
        std::size_t end = text.front() == '.' ? 1 : 0;
        if (end == text.size())
            return Sentence(path, at + end, "a name is missing");
        while (end < text.size() && IsOfName(text[end]))
            ++end;
        if (end < text.size() && text.front() != '[' && text.front() != '(')
            return Sentence(path, at + end, std::string("no name holds \"") + text[end] + "\"");
        at += text.size();
    }
    return {};
}

/// Where and why the text is no plain path.
std::string Fault(const omu_PathString& path)
{
    const std::string_view text = path.AsString().View();
    std::size_t at = 0;
    for (const cow_String& part : path.GetPathAsList())
        at += part.View().size();
    const char next = at < text.size() ? text[at] : '\0';
    std::string why = "\".\", \"[\" or \"(\" is missing";
    if (at == 0 && next != '_' && std::isalpha(static_cast<unsigned char>(next)) == 0)
        why = "a path begins with a letter or \"_\"";
    else if (next == '[' || next == '(')
        why = std::string("the \"") + next + "\" is never closed";
    else if (next == '.' || at == 0)
    {
        at = text.find('+', at);
        why = "an expression is no path";
    }
    return Sentence(path, at, why);
}

Json AsJson(const omu_PathString& path)
{
    Json parts = Json::array();
    for (const cow_String& part : path.GetPathAsList())
        parts.push_back({{"kind", KindOf(part)}, {"text", Text(part)}});
    return {{"schema", SCHEMA},
            {"path", Text(path.AsString())},
            {"canonical", Text(omu_fixOpenOdb(path.AsString()))},
            {"generic", Text(path.AsGenericString())},
            {"dotted", Text(path.AsDottedString())},
            {"inObjectModel", path.InObjectModel()},
            {"parts", parts}};
}

void Line(std::ostream& out, const char* label, const cow_String& text)
{
    out << std::left << std::setw(9) << label << ' ' << bat_PlainText(Text(text)) << '\n';
}

void Print(std::ostream& out, const omu_PathString& path)
{
    Line(out, "canonical", omu_fixOpenOdb(path.AsString()));
    Line(out, "generic", path.AsGenericString());
    Line(out, "dotted", path.AsDottedString());
    Line(out, "in model", path.InObjectModel() ? "yes" : "no");
    for (const cow_String& part : path.GetPathAsList())
        Line(out, KindOf(part), part);
}
}

const char* bat_PathCommand::Summary() const
{
    return "tell what a path of the scripting language is made of";
}

const char* bat_PathCommand::Footer() const
{
    return "canonical: an odb that is opened becomes one by its name. generic: each key is [name], each "
           "index\n"
           "[i]. dotted: without brackets and quotes. in model: whether the path leads into the model or an\n"
           "odb. Then its parts, from the root on.\n"
           "\n"
           "Exit codes: 0 shown, 2 wrong command line, 3 not a path, 5 internal fault\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  orvex path \"mdb.annotations['Arrow-1'].color\"\n"
           "  orvex path \"session.openOdb('a.odb').steps[0]\" --json";
}

void bat_PathCommand::Declare(bat_OptionSet& options)
{
    options.Value("PATH", path_, "as the scripting language writes it; quote it for the shell",
                  {.required = true});
    options.Flag("--json", json_, "print one line of JSON");
}

bat_ExitCode bat_PathCommand::Run(const bat_Console& console)
{
    const omu_PathString path{cow_String(std::string_view(path_))};
    if (!path.IsPlain())
        throw bat_InputError(Fault(path));
    if (const std::string fault = NameFault(path); !fault.empty())
        throw bat_InputError(fault);
    if (json_)
        console.out << bat_JsonText(AsJson(path)) << '\n';
    else
        Print(console.out, path);
    return bat_ExitCode::DONE;
}
