// The limits of a range error: numbers kept as text, in the scripting language's form, and read back.

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <omu_RangeErrorException.h>
#include <random>

namespace
{
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double LARGEST = std::numeric_limits<double>::max();

struct DoubleRow
{
    const char* what;
    double limit;
    const char* text;

    friend void PrintTo(const DoubleRow& row, std::ostream* out) { *out << row.what; }
};
class DoubleLimit : public testing::TestWithParam<DoubleRow>
{};

TEST_P(DoubleLimit, HasItsTextAndReadsBack)
{
    const DoubleRow& row = GetParam();
    omu_RangeErrorException e;
    e.SetLowerLimitAsDouble(row.limit);
    e.SetHigherLimitAsDouble(row.limit);
    EXPECT_EQ(e.m_LowerLimitAsString, cow_String(row.text));
    EXPECT_EQ(e.m_HigherLimitAsString, cow_String(row.text));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(e.LowerLimitAsDouble()), std::bit_cast<std::uint64_t>(row.limit));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(e.HigherLimitAsDouble()), std::bit_cast<std::uint64_t>(row.limit));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DoubleLimit,
    testing::Values(
        DoubleRow{"one", 1.0, "1.0"}, DoubleRow{"zero", 0.0, "0.0"}, DoubleRow{"minus zero", -0.0, "-0.0"},
        DoubleRow{"half", -0.5, "-0.5"}, DoubleRow{"tenth", 0.1, "0.1"}, DoubleRow{"exponent", 1e15, "1e+15"},
        DoubleRow{"no exponent yet", 1e14, "100000000000000.0"}, DoubleRow{"small", 1.5e-7, "1.5e-07"},
        // 15 digits would read back as another number.
        DoubleRow{"sum", 0.1 + 0.2, "0.30000000000000004"},
        DoubleRow{"next after one", std::nextafter(1.0, 2.0), "1.0000000000000002"},
        DoubleRow{"seventeen where sixteen would do", 0.1 + 0.7, "0.79999999999999993"},
        // 15 digits would read back as infinity.
        DoubleRow{"largest", LARGEST, "1.7976931348623157e+308"},
        DoubleRow{"least", -LARGEST, "-1.7976931348623157e+308"},
        DoubleRow{"whole number of 16 digits", 9007199254740993.0, "9007199254740992.0"},
        DoubleRow{"smallest", std::numeric_limits<double>::denorm_min(), "4.94065645841247e-324"},
        DoubleRow{"infinity", INFINITE, "inf.0"}, DoubleRow{"minus infinity", -INFINITE, "-inf.0"}));

TEST(DoubleLimit, OfNaNReadsBackAsNaN)
{
    omu_RangeErrorException e;
    e.SetLowerLimitAsDouble(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(e.m_LowerLimitAsString, cow_String("nan.0"));
    EXPECT_TRUE(std::isnan(e.LowerLimitAsDouble()));
}

TEST(DoubleLimit, EveryNumberReadsBack)
{
    std::mt19937_64 random(20);
    int longTexts = 0;
    constexpr int DRAWS = 20000;
    for (int i = 0; i < DRAWS; ++i)
    {
        // Half of them any bits, half of them of few digits.
        const std::uint64_t bits = random();
        const double limit =
            i % 2 == 0 ? std::bit_cast<double>(bits) : static_cast<double>(bits % 100000) / 1000.0;
        if (std::isnan(limit))
            continue;
        omu_RangeErrorException e;
        e.SetHigherLimitAsDouble(limit);
        ASSERT_EQ(e.HigherLimitAsDouble(), limit) << e.m_HigherLimitAsString.AsCharPtr();
        longTexts += e.m_HigherLimitAsString.Length() > 18 ? 1 : 0;
    }
    EXPECT_GT(longTexts, DRAWS / 4);
    EXPECT_LT(longTexts, DRAWS * 3 / 4);
}

TEST(IntLimit, IsDecimalAndReadsBack)
{
    for (const int limit :
         {0, 1, -1, 1000000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
    {
        omu_RangeErrorException e;
        e.SetLowerLimitAsInt(limit);
        e.SetHigherLimitAsInt(limit);
        EXPECT_EQ(e.m_LowerLimitAsString, cow_String(std::to_string(limit)));
        EXPECT_EQ(e.LowerLimitAsInt(), limit);
        EXPECT_EQ(e.HigherLimitAsInt(), limit);
        EXPECT_EQ(e.HigherLimitAsDouble(), limit);
    }
}

struct TextRow
{
    const char* what;
    const char* text;
    int asInt;
    double asDouble;

    friend void PrintTo(const TextRow& row, std::ostream* out) { *out << row.what; }
};
class LimitText : public testing::TestWithParam<TextRow>
{};

TEST_P(LimitText, ReadsAsTheCLibraryDoes)
{
    const TextRow& row = GetParam();
    omu_RangeErrorException e;
    e.m_LowerLimitAsString = row.text;
    e.m_HigherLimitAsString = row.text;
    EXPECT_EQ(e.LowerLimitAsInt(), row.asInt);
    EXPECT_EQ(e.HigherLimitAsInt(), row.asInt);
    EXPECT_EQ(e.LowerLimitAsDouble(), row.asDouble);
    EXPECT_EQ(e.HigherLimitAsDouble(), row.asDouble);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LimitText,
    testing::Values(TextRow{"empty", "", 0, 0.0}, TextRow{"no number", "many", 0, 0.0},
                    TextRow{"leading blanks", " \t\n 12.5", 12, 12.5}, TextRow{"plus", "+4", 4, 4.0},
                    TextRow{"minus", "-4.25e1x", -4, -42.5}, TextRow{"rest ignored", "7 apples", 7, 7.0},
                    TextRow{"sign alone", "-", 0, 0.0}, TextRow{"two signs", "+-4", 0, 0.0},
                    TextRow{"bare point", ".5", 0, 0.5}, TextRow{"exponent without digits", "2e", 2, 2.0},
                    TextRow{"comma", "1,5", 1, 1.0}, TextRow{"hexadecimal", "0x10", 0, 16.0},
                    TextRow{"infinity", "-infinity", 0, -INFINITE},
                    TextRow{"too large", "1e400", 1, INFINITE}));

// A process may run in a language that writes a decimal comma.
TEST(DoubleLimit, DoesNotHeedTheLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE"})
        if (std::setlocale(LC_ALL, name) != nullptr)
            break;
    const bool comma = *std::localeconv()->decimal_point == ',';
    omu_RangeErrorException e;
    e.SetLowerLimitAsDouble(1.5);
    const double back = e.LowerLimitAsDouble();
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(e.m_LowerLimitAsString, cow_String("1.5"));
    EXPECT_EQ(back, 1.5);
    if (!comma)
        GTEST_SKIP() << "no locale with a decimal comma is installed";
}
}
