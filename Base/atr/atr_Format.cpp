#include <atr_Format.h>

#include <string_view>

namespace
{
// A mark for an argument ("%s", "%2$d") at the start of a text: its length there (0: none), and its argument
// (0: the next one).
struct Mark
{
    std::size_t length = 0;
    int argument = 0;
};

bool IsValueLetter(char c)
{
    return c == 's' || c == 'd';
}

// REQUIRES: text begins with '%'.
Mark MarkAt(std::string_view text)
{
    if (text.size() >= 2 && IsValueLetter(text[1]))
        return {2, 0};
    std::size_t at = 1;
    int argument = 0;
    for (; at < text.size() && at <= 2 && text[at] >= '0' && text[at] <= '9'; ++at)
        argument = 10 * argument + (text[at] - '0');
    if (argument > 0 && at + 1 < text.size() && text[at] == '$' && IsValueLetter(text[at + 1]))
        return {at + 2, argument};
    return {};
}
}

cow_String atr_Format(const cow_String& format, const cow_List<cow_String>& arguments)
{
    cow_String text;
    int next = 0; // unnumbered marks so far
    std::string_view rest = format.View();
    for (std::size_t at = rest.find('%'); at != std::string_view::npos; at = rest.find('%'))
    {
        text.Append(rest.substr(0, at));
        rest.remove_prefix(at);
        const Mark mark = MarkAt(rest);
        if (mark.length > 0)
        {
            const int argument = mark.argument > 0 ? mark.argument : ++next;
            if (argument <= arguments.Length())
                text.Append(arguments.Get(argument - 1).View());
            rest.remove_prefix(mark.length);
            continue;
        }
        text.Append("%");
        rest.remove_prefix(rest.substr(0, 2) == "%%" ? 2 : 1);
    }
    text.Append(rest);
    return text;
}
