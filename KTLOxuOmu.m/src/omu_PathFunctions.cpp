#include <algorithm>
#include <cstdio>
#include <omu_PathFunctions.h>
#include <omu_PathScan.h>
#include <omu_PrimString.h>
#include <string>
#include <string_view>

namespace
{
constexpr std::string_view OPEN_ODB = "session.openOdb(";
constexpr std::string_view ODBS = "session.odbs[";
constexpr std::string_view NAME_CHARACTERS =
    "_ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

// The lower one; -1 stands for none.
int LowerOf(int a, int b)
{
    return a < 0 || b < 0 ? std::max(a, b) : std::min(a, b);
}

// The key whose opening quote stands at `quote`.
cow_String KeyFrom(const cow_String& path, int quote)
{
    const int closing = omu_GetBracketKeyPos(path, ']', quote + 1);
    return closing < 0 ? cow_String() : path.SubString(quote, closing - quote);
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view WithoutKeyword(std::string_view argument)
{
    const std::size_t equals = argument.find_first_not_of(NAME_CHARACTERS);
    if (equals == 0 || equals == argument.npos || argument[equals] != '=')
        return argument;
    return Trimmed(argument.substr(equals + 1));
}
}

int omu_GetBracketKeyPos(const cow_String& path, char bracket, int from)
{
    if (bracket == '[')
        return LowerOf(path.Find("['", from), path.Find("[\"", from));
    if (bracket != ']')
        return -1;
    const int quote = LowerOf(path.Find("']", from), path.Find("\"]", from));
    return quote < 0 ? -1 : quote + 1;
}

cow_String omu_GetFirstKeyInPath(const cow_String& path, int from)
{
    const int bracket = omu_GetBracketKeyPos(path, '[', from);
    return bracket < 0 ? cow_String() : KeyFrom(path, bracket + 1);
}

cow_String omu_GetLastKeyInPath(const cow_String& path, int fromEnd)
{
    const int distance = fromEnd < 0 || fromEnd > path.Length() ? 0 : fromEnd;
    const int last = path.Length() - distance;
    const int bracket = std::max(path.RFind("['", last), path.RFind("[\"", last));
    return bracket < 0 ? cow_String() : KeyFrom(path, bracket + 1);
}

cow_String omu_StringFromQString(const cow_String& text)
{
    const std::string_view view = text.View();
    if (view.size() < 2)
    {
        std::fputs("QuotedString length < 2.\n", stderr);
        return text;
    }
    const char quote = view.front();
    if (quote != view.back() || (quote != '\'' && quote != '"'))
    {
        std::fprintf(stderr, "omu_StringFromQString(%s)  QuotedString does not use ' or \".\n",
                     text.AsCharPtr());
        return text;
    }
    const std::string_view inner = view.substr(1, view.size() - 2);
    if (quote == '"' || inner.find("\\'") == inner.npos)
        return cow_String(inner);
    std::string plain;
    plain.reserve(inner.size());
    for (std::size_t at = 0; at < inner.size(); ++at)
        if (inner.substr(at, 2) != "\\'")
            plain += inner[at];
    return cow_String(plain);
}

cow_String omu_NameString(const cow_String& name)
{
    return omu_PrimString::Quoted(name);
}

cow_String omu_fixOpenOdb(const cow_String& path)
{
    const std::string_view view = path.View();
    if (!view.starts_with(OPEN_ODB))
        return path;
    const int open = static_cast<int>(OPEN_ODB.size()) - 1;
    const int close = omu_PathScan::Closing(view, open);
    if (close < 0)
        return path;
    const auto end = static_cast<std::size_t>(close);
    const std::string_view arguments = view.substr(OPEN_ODB.size(), end - OPEN_ODB.size());
    const auto length = static_cast<std::size_t>(omu_PathScan::Comma(arguments));
    const std::string_view first = WithoutKeyword(Trimmed(arguments.substr(0, length)));
    if (first.empty())
        return path;
    std::string fixed(ODBS);
    fixed.append(first).append("]").append(view.substr(end + 1));
    return cow_String(fixed);
}
