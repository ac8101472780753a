#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <omu_NumberText.h>
#include <uti_NumberText.h>

namespace
{
constexpr int DIGITS = 15;
constexpr double FIRST_OF_16_DIGITS = 1e15;
constexpr double TWO_TO_63 = 9223372036854775808.0;
constexpr double TWO_TO_64 = 18446744073709551616.0;

struct Written
{
    char* end;
    bool bare; // neither "." nor "e" in it
};

char* Put(char* out, const char* text, std::size_t count)
{
    std::memcpy(out, text, count);
    return out + count;
}

// A copy of fixed size is one instruction: all of the row is moved, and what lies beyond count is overwritten
// by what follows. The longest text before a row is "-12345678901234.".
constexpr std::size_t ROW = 16;
static_assert(1 + (DIGITS - 1) + 1 + ROW <= omu_NumberText::SIZE);

char* PutRow(char* out, const char* digits, std::size_t count)
{
    std::memcpy(out, digits, ROW);
    return out + count;
}

// At least two digits and no needless third, whatever the platform's own printing does.
char* PutExponent(char* out, int exponent)
{
    *out++ = 'e';
    *out++ = exponent < 0 ? '-' : '+';
    const int size = exponent < 0 ? -exponent : exponent;
    if (size < 10)
        *out++ = '0';
    return std::to_chars(out, out + 3, size).ptr;
}

// digits[0].digits[1]... times ten to the exponent, laid out as "%.15g" does.
Written PutDigits(char* out, const char* digits, std::size_t count, int exponent)
{
    if (exponent < -4 || exponent >= DIGITS)
    {
        *out++ = digits[0];
        if (count > 1)
        {
            *out++ = '.';
            out = PutRow(out, digits + 1, count - 1);
        }
        return {PutExponent(out, exponent), false};
    }
    if (exponent < 0)
    {
        out = Put(out, "0.000", 5) - 4 - exponent;
        return {PutRow(out, digits, count), false};
    }
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (whole >= count)
    {
        out = PutRow(out, digits, count);
        std::memset(out, '0', whole - count);
        return {out + (whole - count), true};
    }
    out = PutRow(out, digits, whole);
    *out++ = '.';
    return {PutRow(out, digits + whole, count - whole), false};
}

Written PutExactly(double value, char* out)
{
    static_assert(DIGITS == 15);
    char* const end = uti_FormatDouble15(out, out + omu_NumberText::SIZE - 1, value);
    return {end, std::none_of(out, end, [](char c) { return c == '.' || c == 'e'; })};
}

// A positive normal number. The shortest digits that read back to the value are cheap to get, and hold 15
// digits or fewer wherever 15 suffice. Sixteen or seventeen are rounded here: a half-way point of 15 digits
// between them and the value would itself have been a shorter or a nearer choice. Only a sixteenth digit 5 is
// such a point, with the value on either side, and is left to the exact way.
Written PutNormal(double value, char* out)
{
    char text[omu_NumberText::SIZE];
    const char* const end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr;
    const char* mark = end - 4; // "e+07"
    if (*mark != 'e')
        --mark;
    int exponent = 0;
    for (const char* digit = mark + 2; digit < end; ++digit)
        exponent = 10 * exponent + (*digit - '0');
    if (mark[1] == '-')
        exponent = -exponent;

    // The first digit moves onto the point's place, so that all stand in one row.
    text[1] = text[0];
    char* const digits = text + 1;
    std::size_t count = mark == digits ? 1 : static_cast<std::size_t>(mark - digits);
    if (count > DIGITS)
    {
        const char beyond = digits[DIGITS];
        if (beyond == '5' && count == DIGITS + 1)
            return PutExactly(value, out);
        count = DIGITS;
        const char drop = beyond >= '5' ? '9' : '0';
        while (count > 0 && digits[count - 1] == drop)
            --count;
        if (count == 0)
        {
            digits[count++] = '1';
            ++exponent;
        }
        else if (beyond >= '5')
            ++digits[count - 1];
    }
    return PutDigits(out, digits, count, exponent);
}

Written PutGeneral(double value, char* out)
{
    if (std::signbit(value))
    {
        *out++ = '-';
        value = -value;
    }
    if (value < FIRST_OF_16_DIGITS)
    {
        const auto integer = static_cast<std::uint64_t>(value);
        if (static_cast<double>(integer) == value)
            return {std::to_chars(out, out + omu_NumberText::SIZE - 1, integer).ptr, true};
    }
    if (std::isnan(value))
        return {Put(out, "nan", 3), true};
    if (std::isinf(value))
        return {Put(out, "inf", 3), true};
    // Below the normal numbers 15 digits need not read back, so the shortest text proves nothing.
    return value < std::numeric_limits<double>::min() ? PutExactly(value, out) : PutNormal(value, out);
}
}

char* omu_NumberText::General(double value, char* out) noexcept
{
    return PutGeneral(value, out).end;
}

char* omu_NumberText::Float(double value, char* out) noexcept
{
    const Written text = PutGeneral(value, out);
    return text.bare ? Put(text.end, ".0", 2) : text.end;
}

char* omu_NumberText::Integer(double value, char* out) noexcept
{
    return std::to_chars(out, out + SIZE, ToInt32(value)).ptr;
}

char* omu_NumberText::Unsigned(std::uint64_t value, char* out) noexcept
{
    return std::to_chars(out, out + SIZE, value).ptr;
}

std::int32_t omu_NumberText::ToInt32(double value) noexcept
{
    // NaN fails both comparisons.
    if (!(value >= -TWO_TO_63 && value < TWO_TO_63))
        return 0;
    const auto bits = static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
}

std::uint64_t omu_NumberText::ToUnsigned(double value) noexcept
{
    return value >= 0.0 && value < TWO_TO_64 ? static_cast<std::uint64_t>(value) : 0;
}
