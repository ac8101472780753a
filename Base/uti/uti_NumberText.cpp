#include <uti_NumberText.h>

#include <charconv>
#include <limits>
#include <system_error>

namespace
{
bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Cuts blanks and one sign off the front; true for a minus.
bool CutSign(std::string_view& text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    if (text.empty() || (text.front() != '-' && text.front() != '+'))
        return false;
    const bool negative = text.front() == '-';
    text.remove_prefix(1);
    return negative;
}

// Cuts "0x" off a hexadecimal number, that is where a digit follows.
bool CutHexPrefix(std::string_view& text)
{
    if (text.size() < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X'))
        return false;
    const std::size_t digit = text[2] == '.' ? 3 : 2;
    unsigned value = 0;
    if (digit >= text.size() ||
        std::from_chars(text.data() + digit, text.data() + digit + 1, value, 16).ec != std::errc())
        return false;
    text.remove_prefix(2);
    return true;
}

// Whether a number that is out of double's range is too large, or else too small: its first digit other
// than zero stands before the point, once the exponent has moved it.
bool IsTooLarge(std::string_view number, bool hex)
{
    const int pointShift = hex ? 4 : 1; // a hexadecimal digit moves the point by four powers of two
    long long magnitude = 0;
    bool started = false;
    bool behindPoint = false;
    std::size_t at = 0;
    for (; at < number.size(); ++at)
    {
        const char c = number[at];
        if (c == '.')
            behindPoint = true;
        else if (hex ? (c == 'p' || c == 'P') : (c == 'e' || c == 'E'))
            break;
        else
        {
            started = started || c != '0';
            if (started && !behindPoint)
                magnitude += pointShift;
            if (!started && behindPoint)
                magnitude -= pointShift;
        }
    }
    long long exponent = 0;
    if (at < number.size())
    {
        std::string_view digits = number.substr(at + 1);
        const bool negative = CutSign(digits);
        const std::from_chars_result read =
            std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (read.ec != std::errc())
            return !negative;
        exponent = negative ? -exponent : exponent;
    }
    return magnitude + exponent > 0;
}
}

char* uti_FormatDouble15(char* first, char* last, double value) noexcept
{
    const std::to_chars_result end = std::to_chars(first, last, value, std::chars_format::general, 15);
    return end.ec == std::errc() ? end.ptr : nullptr;
}

double uti_ReadDouble(const char* text) noexcept
{
    return text ? uti_ReadDouble(std::string_view(text)) : 0.0;
}

double uti_ReadDouble(std::string_view text) noexcept
{
    const bool negative = CutSign(text);
    if (text.empty() || text.front() == '-')
        return 0.0;
    const bool hex = CutHexPrefix(text);
    double value = 0.0;
    const std::from_chars_result end =
        std::from_chars(text.data(), text.data() + text.size(), value,
                        hex ? std::chars_format::hex : std::chars_format::general);
    if (end.ec == std::errc::result_out_of_range)
    {
        const std::string_view number(text.data(), static_cast<std::size_t>(end.ptr - text.data()));
        value = IsTooLarge(number, hex) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    else if (end.ec != std::errc())
        return 0.0;
    return negative ? -value : value;
}

int uti_ReadInt(const char* text) noexcept
{
    return text ? uti_ReadInt(std::string_view(text)) : 0;
}

int uti_ReadInt(std::string_view text) noexcept
{
    const bool negative = CutSign(text);
    long long value = 0;
    for (std::size_t i = 0; i < text.size() && IsDigit(text[i]); ++i)
    {
        value = 10 * value + (text[i] - '0');
        if (value > std::numeric_limits<int>::max())
            return negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return static_cast<int>(negative ? -value : value);
}
