#include <testing/CommaLocale.h>
#include <uti_NumberText.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace
{
std::string Formatted(double value)
{
    char text[uti_MaxDouble15];
    const char* end = uti_FormatDouble15(text, text + sizeof text, value);
    return end ? std::string(text, static_cast<std::size_t>(end - text)) : "does not fit";
}

std::string Printed(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.15lg", value);
    return text;
}

// Numbers where formats and readers tend to fail, then any bit patterns.
std::vector<double> Samples()
{
    using Limits = std::numeric_limits<double>;
    std::vector<double> samples = {0.0,
                                   0.1,
                                   1e14,
                                   1e15,
                                   1e16,
                                   123456789012345.6,
                                   1e-4,
                                   1e-5,
                                   2.0 / 3.0,
                                   999999999999999.5,
                                   Limits::max(),
                                   Limits::min(),
                                   Limits::denorm_min(),
                                   Limits::infinity(),
                                   Limits::quiet_NaN(),
                                   double(0.1f)};
    std::mt19937_64 random(15);
    for (int i = 0; i < 20000; ++i)
        samples.push_back(std::bit_cast<double>(random()));
    for (int i = 0; i < 20000; ++i)
        samples.push_back(
            std::ldexp(static_cast<double>(random() % 100000), static_cast<int>(random() % 60) - 30));
    const std::size_t count = samples.size();
    for (std::size_t i = 0; i < count; ++i)
        samples.push_back(-samples[i]);
    return samples;
}

TEST(uti_NumberText, IsThatOfPrintfAndReadsBack)
{
    for (const double value : Samples())
    {
        const std::string text = Formatted(value);
        ASSERT_EQ(text, Printed(value)) << std::hexfloat << value;
        const double expected = std::strtod(text.c_str(), nullptr);
        const double read = uti_ReadDouble(text);
        ASSERT_TRUE(read == expected || std::isnan(value)) << text;
        ASSERT_TRUE(std::isnan(read) == std::isnan(value) && std::signbit(read) == std::signbit(expected))
            << text;
    }
}

TEST(uti_FormatDouble15, RefusesWhatDoesNotFit)
{
    char text[5] = "abcd";
    EXPECT_EQ(uti_FormatDouble15(text, text + 4, 12345.0), nullptr);
    EXPECT_EQ(uti_FormatDouble15(text, text, 1.0), nullptr);
    EXPECT_EQ(uti_FormatDouble15(text, text + 4, 1234.0), text + 4);
}

// The C library in its own locale is the measure: for texts put together of what numbers are made of, whole
// and broken, and at the ends of the range.
TEST(uti_Read, ReadsAsTheCLibraryDoes)
{
    const std::string zeros(400, '0');
    std::vector<std::string> texts = {"1e309",
                                      "1e99999999999999999999",
                                      "1" + zeros,
                                      "0." + zeros + "1e999",
                                      "0x1p1024",
                                      "0x1" + zeros,
                                      "1e-400",
                                      "1e-99999999999999999999",
                                      "0." + zeros + "1",
                                      "0." + zeros + "1e50",
                                      "1" + zeros + "e-999",
                                      "0x1p-1080",
                                      "0e999999999999",
                                      "4.9e-324",
                                      "2147483648",
                                      "-2147483648",
                                      "-99999999999999999999999999",
                                      "0.1000000000000000055511151231257827"};
    const char* const pieces[] = {"",    "0",         "7",    "12",   "010", ".", ".5", "e",
                                  "E+3", "e-",        "0x",   "1Fp1", "-",   "+", " ",  "\t\n\v\f\r",
                                  "inf", "-Infinity", "INFx", ",",    "nan", "g"};
    std::mt19937 random(5);
    for (int i = 0; i < 30000; ++i)
    {
        std::string text;
        for (int count = static_cast<int>(random() % 5); count >= 0; --count)
            text += pieces[random() % std::size(pieces)];
        texts.push_back(text);
    }
    for (const std::string& text : texts)
    {
        const double wanted = std::strtod(text.c_str(), nullptr);
        const double read = uti_ReadDouble(text);
        ASSERT_TRUE(read == wanted || (std::isnan(read) && std::isnan(wanted))) << text << ": " << read;
        ASSERT_EQ(std::signbit(read), std::signbit(wanted)) << text;
        const long integer = std::strtol(text.c_str(), nullptr, 10);
        ASSERT_EQ(uti_ReadInt(text), std::clamp<long>(integer, INT_MIN, INT_MAX)) << text;
    }
}

TEST(uti_Read, NullAndZeroBytes)
{
    EXPECT_EQ(uti_ReadDouble(static_cast<const char*>(nullptr)), 0.0);
    EXPECT_EQ(uti_ReadInt(static_cast<const char*>(nullptr)), 0);
    EXPECT_EQ(uti_ReadDouble(std::string_view("1\0"
                                              "2",
                                              3)),
              1.0);
    EXPECT_EQ(uti_ReadInt(std::string_view("12345").substr(0, 2)), 12) << "no closing zero is needed";
}

TEST(uti_NumberText, TheLocaleOfStreamsDoesNotMatter)
{
    const CommaStreams streams;
    EXPECT_EQ(Formatted(1234.5), "1234.5");
    EXPECT_EQ(uti_ReadDouble("1234.5"), 1234.5);
    EXPECT_EQ(uti_ReadDouble("1234,5"), 1234.0);
    EXPECT_EQ(uti_ReadInt("1.234"), 1);
}
}
