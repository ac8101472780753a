#include <bat_Number.h>
#include <bat_PlainText.h>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace
{
TEST(DriverNumbers, TheTextIsTheShortestThatReadsBack)
{
    EXPECT_EQ(bat_NumberText(0.1), "0.1");
    EXPECT_EQ(bat_NumberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(bat_NumberText(5.0), "5");
    EXPECT_EQ(bat_NumberText(1e-6), "1e-06");
    EXPECT_EQ(bat_NumberText(-0.0), "0");
    EXPECT_EQ(bat_NumberText(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(bat_NumberText(-2.2250738585072014e-308), "-2.2250738585072014e-308");
}

TEST(DriverNumbers, TextAndBack)
{
    std::mt19937_64 random(3);
    int finite = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const std::uint64_t bits = random();
        double value = 0.0;
        static_assert(sizeof bits == sizeof value);
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        ++finite;
        double back = 0.0;
        ASSERT_TRUE(bat_ParseNumber(bat_NumberText(value), back)) << value;
        ASSERT_EQ(back, value);
    }
    EXPECT_GT(finite, 19000);
}

TEST(DriverNumbers, TextForPeople)
{
    EXPECT_EQ(bat_ReadableText(0.1 + 0.2), "0.3");
    EXPECT_EQ(bat_ReadableText(12.5), "12.5");
    EXPECT_EQ(bat_ReadableText(1.0 / 3.0), "0.3333333333");
    EXPECT_EQ(bat_ReadableText(-0.0), "0");
    EXPECT_EQ(bat_CountText(0), "0");
    EXPECT_EQ(bat_CountText(999), "999");
    EXPECT_EQ(bat_CountText(1000), "1 000");
    EXPECT_EQ(bat_CountText(12345678), "12 345 678");
}

TEST(DriverNumbers, OnlyWholeFiniteDecimalsAreRead)
{
    struct Row
    {
        const char* text;
        double value; // NaN: refused
    };
    const double refused = std::numeric_limits<double>::quiet_NaN();
    for (const Row& row :
         {Row{"1", 1.0},         Row{"-1.5e3", -1500.0}, Row{"+2", 2.0},      Row{".5", 0.5},
          Row{"5.", 5.0},        Row{"5e-324", 5e-324},  Row{"-0", 0.0},      Row{"", refused},
          Row{"+", refused},     Row{"-", refused},      Row{"+-1", refused}, Row{"--1", refused},
          Row{"1x", refused},    Row{" 1", refused},     Row{"1 ", refused},  Row{"1,5", refused},
          Row{"0x10", refused},  Row{"nan", refused},    Row{"inf", refused}, Row{"-infinity", refused},
          Row{"1e400", refused}, Row{"1e-400", refused}, Row{"1e", refused}})
    {
        double value = 77.0;
        EXPECT_EQ(bat_ParseNumber(row.text, value), !std::isnan(row.value)) << "'" << row.text << "'";
        EXPECT_EQ(value, std::isnan(row.value) ? 77.0 : row.value) << "'" << row.text << "'";
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
    EXPECT_EQ(bat_ShortText("abcdef", 3), "...");
    EXPECT_EQ(bat_ShortText("abcdef", 2), "");
    EXPECT_EQ(bat_ShortText("", 0), "");
    EXPECT_EQ(bat_ShortText("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 4), "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9");
    EXPECT_EQ(bat_ShortText("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 4), "\xC3\xA9...");
}
}
