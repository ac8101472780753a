#include <bat_PlainText.h>

namespace
{
bool StartsCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

/// Where the text's first `columns` characters end.
std::size_t CutAfter(const std::string& text, int columns)
{
    std::size_t at = 0;
    for (; at < text.size(); ++at)
        if (StartsCharacter(text[at]) && columns-- == 0)
            break;
    return at;
}
}

std::string bat_PlainText(std::string text)
{
    unsigned char former = 0;
    for (char& c : text)
    {
        const unsigned char code = static_cast<unsigned char>(c);
        // C2 80 to C2 9F are control characters, too: some terminals obey C2 9B.
        if (code < 0x20 || code == 0x7F || (former == 0xC2 && code < 0xA0))
            c = '?';
        former = code;
    }
    return text;
}

std::string bat_ShortText(const std::string& text, int columns)
{
    if (CutAfter(text, columns) == text.size())
        return text;
    constexpr int DOTS = 3;
    if (columns < DOTS)
        return {};
    return text.substr(0, CutAfter(text, columns - DOTS)) + "...";
}
