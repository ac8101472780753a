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

// The C library in its own locale is the measure, here with streams in another.

namespace
{
TEST(uti_FormatDouble15, IsThatOfPrintfAndRefusesWhatDoesNotFit)
{
    const CommaStreams streams;
    using Limits = std::numeric_limits<double>;
    std::vector<double> samples = {
        0.0,      1e14, 1e15, 1e16, 1e-4, 1e-5, 999999999999999.5, Limits::max(), Limits::denorm_min(),
        HUGE_VAL, NAN};
    std::mt19937_64 random(15);
    for (int i = 0; i < 20000; ++i)
    {
        samples.push_back(std::bit_cast<double>(random()));
        samples.push_back(
            std::ldexp(static_cast<double>(random() % 100000), static_cast<int>(random() % 60) - 30));
    }
    for (const double sample : samples)
        for (const double value : {sample, -sample})
        {
            char text[uti_MaxDouble15], printed[64];
            const char* end = uti_FormatDouble15(text, text + sizeof text, value);
            ASSERT_NE(end, nullptr) << std::hexfloat << value;
            std::snprintf(printed, sizeof printed, "%.15lg", value);
            ASSERT_EQ(std::string(text, end - text), printed) << std::hexfloat << value;
        }
    char text[5] = "abcd";
    EXPECT_EQ(uti_FormatDouble15(text, text + 4, 12345.0), nullptr);
}

// For texts put together of what numbers are made of, whole and broken, and at the ends of the range.
TEST(uti_Read, ReadsAsTheCLibraryDoes)
{
    const CommaStreams streams;
    const std::string zeros(400, '0');
    std::vector<std::string> texts = {"1" + zeros,
                                      "0." + zeros + "1",
                                      "0." + zeros + "1e999",
                                      "1" + zeros + "e-999",
                                      "0x1p1024",
                                      "0x1p-1080",
                                      "1e99999999999999999999",
                                      "0e999999999999",
                                      "2147483648",
                                      "-99999999999999999999999999"};
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
    EXPECT_EQ(uti_ReadDouble(static_cast<const char*>(nullptr)), 0.0);
    EXPECT_EQ(uti_ReadInt(std::string_view("12345").substr(0, 2)), 12) << "no closing zero is needed";
}
}
