#include <uti_NumberText.h>

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
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
                                   1.5,
                                   1e14,
                                   1e15,
                                   1e16,
                                   123456789012345.6,
                                   1e-4,
                                   1e-5,
                                   0.5,
                                   2.0 / 3.0,
                                   1e100,
                                   1e-100,
                                   999999999999999.5,
                                   1e308,
                                   1e-308,
                                   4.9e-324,
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

TEST(uti_FormatDouble15, GivesTheBytesOfPrintf)
{
    for (const double value : Samples())
        ASSERT_EQ(Formatted(value), Printed(value)) << std::hexfloat << value;
}

TEST(uti_FormatDouble15, RefusesWhatDoesNotFit)
{
    char text[5] = "abcd";
    EXPECT_EQ(uti_FormatDouble15(text, text + 4, 12345.0), nullptr);
    EXPECT_EQ(uti_FormatDouble15(text, text, 1.0), nullptr);
    EXPECT_EQ(uti_FormatDouble15(text, text + 4, 1234.0), text + 4);
}

struct ReadRow
{
    const char* what;
    const char* text;
    double number;
    int integer;
};

class uti_Read : public testing::TestWithParam<ReadRow>
{};

TEST_P(uti_Read, MatchesTableAndTheCLibrary)
{
    const ReadRow& row = GetParam();
    EXPECT_EQ(uti_ReadDouble(row.text), row.number);
    EXPECT_EQ(std::signbit(uti_ReadDouble(row.text)), std::signbit(row.number));
    EXPECT_EQ(uti_ReadInt(row.text), row.integer);
    EXPECT_EQ(std::strtod(row.text, nullptr), row.number);
    EXPECT_EQ(std::strtol(row.text, nullptr, 10), row.integer);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, uti_Read,
    testing::Values(ReadRow{"plain", "12.5", 12.5, 12}, ReadRow{"blanks_before", " \t\n\v\f\r-3x", -3.0, -3},
                    ReadRow{"plus", "+7.25", 7.25, 7}, ReadRow{"two_signs", "+-7", 0.0, 0},
                    ReadRow{"minus_plus", "-+7", 0.0, 0}, ReadRow{"sign_then_blank", "- 7", 0.0, 0},
                    ReadRow{"nothing", "", 0.0, 0}, ReadRow{"word", "abc", 0.0, 0},
                    ReadRow{"only_sign", "-", 0.0, 0}, ReadRow{"only_point", ".", 0.0, 0},
                    ReadRow{"point_first", ".5", 0.5, 0}, ReadRow{"point_last", "5.", 5.0, 5},
                    ReadRow{"minus_zero", "-0", -0.0, 0}, ReadRow{"exponent", "2e3", 2000.0, 2},
                    ReadRow{"capital_exponent", "2E+3x", 2000.0, 2},
                    ReadRow{"exponent_without_digits", "2e", 2.0, 2},
                    ReadRow{"exponent_sign_only", "2e-", 2.0, 2}, ReadRow{"two_points", "1.2.3", 1.2, 1},
                    ReadRow{"comma", "1,5", 1.0, 1}, ReadRow{"hex", "0x1Fp1", 62.0, 0},
                    ReadRow{"hex_fraction", "-0X.8", -0.5, 0}, ReadRow{"hex_prefix_only", "0x", 0.0, 0},
                    ReadRow{"hex_without_digit", "0xg", 0.0, 0}, ReadRow{"hex_point_only", "0x.", 0.0, 0},
                    ReadRow{"octal_is_decimal", "010", 10.0, 10},
                    ReadRow{"infinity", "-Infinity", -HUGE_VAL, 0}, ReadRow{"inf", "infx", HUGE_VAL, 0},
                    ReadRow{"long_mantissa", "0.1000000000000000055511151231257827", 0.1, 0}),
    [](const auto& row) { return std::string(row.param.what); });

TEST(uti_ReadDouble, KeepsWithinDoublesRange)
{
    const std::string zeros(400, '0');
    for (const std::string& large : {std::string("1e309"), std::string("1e99999999999999999999"), "1" + zeros,
                                     "0." + zeros + "1e999", std::string("0x1p1024"), "0x1" + zeros})
    {
        EXPECT_EQ(uti_ReadDouble(large), HUGE_VAL) << large;
        EXPECT_EQ(uti_ReadDouble("-" + large), -HUGE_VAL) << large;
        EXPECT_EQ(std::strtod(large.c_str(), nullptr), HUGE_VAL) << large;
    }
    for (const std::string& small : {std::string("1e-400"), std::string("1e-99999999999999999999"),
                                     "0." + zeros + "1", "0." + zeros + "1e50", "1" + zeros + "e-999",
                                     std::string("0x1p-1080"), std::string("0e999999999999")})
    {
        EXPECT_EQ(uti_ReadDouble(small), 0.0) << small;
        EXPECT_TRUE(std::signbit(uti_ReadDouble("-" + small))) << small;
        EXPECT_EQ(std::strtod(small.c_str(), nullptr), 0.0) << small;
    }
    EXPECT_EQ(uti_ReadDouble("4.9e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(uti_ReadDouble, ReadsBackWhatWasWritten)
{
    for (const double value : Samples())
    {
        const std::string text = Printed(value);
        const double expected = std::strtod(text.c_str(), nullptr);
        const double read = uti_ReadDouble(text);
        if (std::isnan(value))
            ASSERT_TRUE(std::isnan(read) && std::signbit(read) == std::signbit(expected)) << text;
        else
            ASSERT_EQ(read, expected) << text;
    }
}

TEST(uti_ReadInt, StopsAtTheEndsOfInt)
{
    EXPECT_EQ(uti_ReadInt("2147483647"), INT_MAX);
    EXPECT_EQ(uti_ReadInt("2147483648"), INT_MAX);
    EXPECT_EQ(uti_ReadInt("-2147483648"), INT_MIN);
    EXPECT_EQ(uti_ReadInt("-99999999999999999999999999"), INT_MIN);
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

void ExpectPointNumbers()
{
    EXPECT_EQ(Formatted(1234.5), "1234.5");
    EXPECT_EQ(uti_ReadDouble("1234.5"), 1234.5);
    EXPECT_EQ(uti_ReadDouble("1234,5"), 1234.0);
    EXPECT_EQ(uti_ReadInt("1.234"), 1);
}

TEST(uti_NumberText, TheStandardLibrarysLocaleDoesNotMatter)
{
    struct Commas : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale former = std::locale::global(std::locale(std::locale::classic(), new Commas));
    std::ostringstream disturbed;
    disturbed << 1234.5;
    EXPECT_EQ(disturbed.str(), "1.234,5");
    ExpectPointNumbers();
    std::locale::global(former);
}

TEST(uti_NumberText, TheProcessesLocaleDoesNotMatter)
{
    const std::string former = std::setlocale(LC_NUMERIC, nullptr);
    const char* found = nullptr;
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "de_DE"})
        if (!found)
            found = std::setlocale(LC_NUMERIC, name);
    if (!found)
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    EXPECT_EQ(Printed(1.5), "1,5");
    ExpectPointNumbers();
    std::setlocale(LC_NUMERIC, former.c_str());
}
}
