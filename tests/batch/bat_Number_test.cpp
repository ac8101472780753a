#include <bat_Number.h>
#include <bat_PlainText.h>
#include <bat_TextCursor.h>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace
{
constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(DriverNumbers, TextAndBack)
{
    std::mt19937_64 random(3);
    for (int i = 0; i < 20000; ++i)
    {
        const double value = std::bit_cast<double>(random());
        double back = 77.0;
        ASSERT_EQ(bat_ParseNumber(bat_NumberText(value), back), std::isfinite(value)) << value;
        ASSERT_EQ(back, std::isfinite(value) ? value : 77.0);
        ASSERT_TRUE(!std::isfinite(value) || bat_TextCursor::Number(bat_NumberText(value)) == value);
    }
    EXPECT_EQ(bat_NumberText(-0.0), "0");
    double number = 0.0;
    EXPECT_TRUE(bat_ParseNumber("+.15E1", number) && number == 1.5);
    for (const char* text : {"", "+", "+-1", " 1", "1 ", "1,5", "0x10", "1e400", "1e-400", "1e"})
        EXPECT_FALSE(bat_ParseNumber(text, number)) << text;
}

// Out of range in both directions also with long mantissas, where the exponent alone misleads.
TEST(MeshNumbers, OutOfRangeAndOddlySpelt)
{
    const std::string zeros(400, '0');
    for (const auto& [word, value] : {std::pair<std::string, double>{"-0", -0.0},
                                      {"1e99999999999999999999", INFINITE},
                                      {"0e99999999999999999999", 0.0},
                                      {"10000000000e-320", 1e-310},
                                      {"0." + zeros + "1e+50", 0.0},
                                      {"-1" + zeros + ".5e-50", -INFINITE},
                                      {"1" + zeros + "e-400", 1.0},
                                      {"0." + zeros + "1e401", 1.0},
                                      {"-1.#INF00", -INFINITE}})
    {
        const double number = bat_TextCursor::Number(word).value_or(NAN);
        EXPECT_TRUE(number == value && std::signbit(number) == std::signbit(value)) << word << " " << number;
    }
    for (const char* word : {"-NaN", "nan(0x7)", "1.#QNAN", "-1.#IND"})
        EXPECT_TRUE(std::isnan(bat_TextCursor::Number(word).value_or(0))) << word;
    for (const char* word : {"", ".", "e5", "1e", "+-1", "0x10", "1d5"})
        EXPECT_FALSE(bat_TextCursor::Number(word)) << word;
    EXPECT_EQ(bat_TextCursor::Integer("9223372036854775808"), std::nullopt);
}

TEST(DriverText, IsPlainAndCutAtCharacters)
{
    EXPECT_EQ(bat_PlainText("\xC3\xA9\nc\x7f\xC2\x9Bm"), "\xC3\xA9?c?\xC2?m")
        << "C2 9B is ESC [ in one character";
    EXPECT_EQ(bat_ShortText("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 4), "\xC3\xA9...");
}
}
