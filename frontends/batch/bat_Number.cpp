#include <bat_Number.h>
#include <charconv>
#include <cmath>

std::string bat_NumberText(double value)
{
    char text[32]; // the longest, "-2.2250738585072014e-308", has 24
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, value + 0.0);
    return {text, end.ptr};
}

std::string bat_ReadableText(double value)
{
    constexpr int DIGITS = 10;
    char text[32];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text, value + 0.0, std::chars_format::general, DIGITS);
    return {text, end.ptr};
}

std::string bat_CountText(unsigned long long value)
{
    std::string text = std::to_string(value);
    for (std::size_t at = text.size(); at > 3;)
    {
        at -= 3;
        text.insert(at, 1, ' ');
    }
    return text;
}

bool bat_ParseNumber(std::string_view text, double& value)
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1); // from_chars knows the minus sign alone
    double number = 0.0;
    const std::from_chars_result end = std::from_chars(text.data(), text.data() + text.size(), number);
    if (end.ec != std::errc() || end.ptr != text.data() + text.size() || !std::isfinite(number))
        return false;
    value = number;
    return true;
}
