#include <charconv>
#include <gsl_TracePrint.h>
#include <string>

namespace
{
constexpr int DECIMALS = 6;
// The largest double has 309 digits before the point.
constexpr std::size_t LONGEST_NUMBER = 320;

void Append(std::string& text, const gsl_TraceValue& value)
{
    char number[LONGEST_NUMBER];
    if (const double* real = std::get_if<double>(&value))
    {
        text.append(
            number,
            std::to_chars(number, number + LONGEST_NUMBER, *real, std::chars_format::fixed, DECIMALS).ptr);
    }
    else if (const int* whole = std::get_if<int>(&value))
    {
        text.append(number, std::to_chars(number, number + LONGEST_NUMBER, *whole).ptr);
    }
    else
    {
        text.append(std::get<const char*>(value));
    }
}
}

void gsl_TracePrint(FILE* stream, const char* format, std::initializer_list<gsl_TraceValue> values)
{
    std::string text;
    auto value = values.begin();
    for (const char* p = format; *p != '\0'; ++p)
    {
        if (*p != '%' || value == values.end())
        {
            text += *p;
            continue;
        }
        ++p; // 'd', 's', or the 'l' of "lf"
        p += *p == 'l' ? 1 : 0;
        Append(text, *value++);
    }
    std::fwrite(text.data(), 1, text.size(), stream);
}
