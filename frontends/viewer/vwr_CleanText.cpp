#include <vwr_CleanText.h>

#include <cstdint>

namespace
{
constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

// The length of the character at the front of the text, and its code; length 0 where there is no UTF-8.
std::size_t Decode(std::string_view text, std::uint32_t& code)
{
    const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    code = byte(0);
    if (code < 0x80)
        return 1;
    const std::size_t length = code >= 0xF0 ? 4 : code >= 0xE0 ? 3 : 2;
    if (code < 0xC2 || code > 0xF4 || text.size() < length)
        return 0;
    code &= 0x7Fu >> length;
    for (std::size_t at = 1; at < length; ++at)
    {
        if ((byte(at) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (byte(at) & 0x3F);
    }
    constexpr std::uint32_t SHORTEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < SHORTEST[length] || code > 0x10FFFF || surrogate ? 0 : length;
}

bool IsControl(std::uint32_t code)
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

bool IsNoCharacter(std::uint32_t code)
{
    return (code & 0xFFFE) == 0xFFFE || (code >= 0xFDD0 && code <= 0xFDEF);
}
}

std::string vwr_CleanText(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    while (!text.empty())
    {
        std::uint32_t code = 0;
        const std::size_t length = Decode(text, code);
        if (code == '\t')
            clean += "    ";
        else if (length == 0 || IsControl(code) || IsNoCharacter(code))
            clean += REPLACEMENT;
        else
            clean += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return clean;
}
