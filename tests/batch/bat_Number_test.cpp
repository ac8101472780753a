#include <bat_Number.h>
#include <bat_PlainText.h>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace
{
TEST(DriverNumbers, TextAndBack)
{
    std::mt19937_64 random(3);
    int finite = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        ++finite;
        double back = 0.0;
        ASSERT_TRUE(bat_ParseNumber(bat_NumberText(value), back)) << value;
        ASSERT_EQ(back, value);
    }
    EXPECT_GT(finite, 19000);
    EXPECT_EQ(bat_NumberText(0.1 + 0.2), "0.30000000000000004") << "the shortest that reads back";
    EXPECT_EQ(bat_NumberText(1e-6), "1e-06");
    EXPECT_EQ(bat_NumberText(-0.0), "0");
}

TEST(DriverNumbers, TextForPeople)
{
    EXPECT_EQ(bat_ReadableText(0.1 + 0.2), "0.3");
    EXPECT_EQ(bat_ReadableText(1.0 / 3.0), "0.3333333333");
    EXPECT_EQ(bat_ReadableText(-0.0), "0");
    EXPECT_EQ(bat_CountText(999), "999");
    EXPECT_EQ(bat_CountText(1000), "1 000");
    EXPECT_EQ(bat_CountText(12345678), "12 345 678");
}

TEST(DriverNumbers, OnlyWholeFiniteDecimalsAreRead)
{
    double number = 77.0;
    for (const char* text : {"1.5", "+1.5", "15.e-1", ".15E1"})
        EXPECT_TRUE(bat_ParseNumber(text, number) && number == 1.5) << text;
    EXPECT_TRUE(bat_ParseNumber("5e-324", number) && number > 0);
    for (const char* text :
         {"", "+", "+-1", "1x", " 1", "1 ", "1,5", "0x10", "nan", "-infinity", "1e400", "1e-400", "1e"})
    {
        double value = 77.0;
        EXPECT_FALSE(bat_ParseNumber(text, value)) << text;
        EXPECT_EQ(value, 77.0) << text;
    }
}

TEST(DriverText, ControlCharactersDoNotReachTheTerminal)
{
    EXPECT_EQ(bat_PlainText("a\033[2Jb\nc\x7f"), "a?[2Jb?c?");
    EXPECT_EQ(bat_PlainText("\xC3\xA9t\xC3\xA9"), "\xC3\xA9t\xC3\xA9");
    EXPECT_EQ(bat_PlainText("\xC2\x9B"
                            "31m"),
              "\xC2?31m")
        << "the one-character form of ESC [";
}

TEST(DriverText, CutsAtCharactersNotBytes)
{
    EXPECT_EQ(bat_ShortText("abcdef", 6), "abcdef");
    EXPECT_EQ(bat_ShortText("abcdef", 5), "ab...");
    EXPECT_EQ(bat_ShortText("abcdef", 2), "");
    EXPECT_EQ(bat_ShortText("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 4), "\xC3\xA9...");
}
}
