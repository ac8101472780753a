#include <cstddef>
#include <omu_PathScan.h>

namespace
{
// Walks the characters that stand in no quoted text and behind no backslash, until `stop` says so; the
// position of that character, or -1.
template <class Stop>
int FindUnquoted(std::string_view text, std::size_t from, Stop stop)
{
    char quote = '\0';
    for (std::size_t at = from; at < text.size(); ++at)
    {
        const char c = text[at];
        if (c == '\\')
            ++at;
        else if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '\'' || c == '"')
            quote = c;
        else if (stop(c))
            return static_cast<int>(at);
    }
    return -1;
}
}

int omu_PathScan::Closing(std::string_view path, int open)
{
    const auto at = static_cast<std::size_t>(open);
    const char opening = path[at];
    const char closing = opening == '[' ? ']' : ')';
    int depth = 1;
    return FindUnquoted(path, at + 1, [&](char c) {
        depth += c == opening ? 1 : c == closing ? -1 : 0;
        return depth == 0;
    });
}

int omu_PathScan::Comma(std::string_view text)
{
    int depth = 0;
    const int found = FindUnquoted(text, 0, [&](char c) {
        if (c == '[' || c == '(' || c == '{')
            ++depth;
        else if (c == ']' || c == ')' || c == '}')
            --depth;
        return c == ',' && depth == 0;
    });
    return found < 0 ? static_cast<int>(text.size()) : found;
}
