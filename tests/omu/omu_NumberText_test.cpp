#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <locale>
#include <omu_NumberText.h>
#include <omu_PrimNumber.h>
#include <ostream>
#include <random>
#include <string>
#include <testing/CommaLocale.h>

#include <gtest/gtest.h>

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

std::string General(double value)
{
    char text[omu_NumberText::SIZE];
    return std::string(text, omu_NumberText::General(value, text));
}

std::string Float(double value)
{
    char text[omu_NumberText::SIZE];
    return std::string(text, omu_NumberText::Float(value, text));
}

std::string Printed(double value)
{
    char text[64];
    return std::string(text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.15lg", value)));
}

struct NumberRow
{
    const char* name;
    omu_PrimNumber number;
    const char* text;
};

void PrintTo(const NumberRow& row, std::ostream* out)
{
    *out << row.name;
}

class NumberAsString : public testing::TestWithParam<NumberRow>
{};

TEST_P(NumberAsString, MatchesTable)
{
    EXPECT_STREQ(GetParam().number.AsString(0).AsCharPtr(), GetParam().text);
    EXPECT_EQ(GetParam().number.AsRepr(), GetParam().number.AsString(0));
}

TEST_P(NumberAsString, IgnoresTheNestingHint)
{
    EXPECT_EQ(GetParam().number.AsString(7), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NumberAsString,
    testing::Values(
        NumberRow{"Int", omu_PrimNumber(7), "7"}, NumberRow{"NegativeInt", omu_PrimNumber(-7), "-7"},
        NumberRow{"LeastInt", omu_PrimNumber(std::numeric_limits<int>::min()), "-2147483648"},
        NumberRow{"SignedChar", omu_PrimNumber(static_cast<signed char>(-128)), "-128"},
        NumberRow{"Short", omu_PrimNumber(static_cast<short>(-32768)), "-32768"},
        NumberRow{"Unsigned", omu_PrimNumber(4294967295u), "4294967295"},
        NumberRow{"UnsignedOf64Bits", omu_PrimNumber(18446744073709549568.0, DataTypeEnm::UINT),
                  "18446744073709549568"},
        NumberRow{"IntFromDoubleTruncates", omu_PrimNumber(2.9, DataTypeEnm::INT), "2"},
        NumberRow{"NegativeIntFromDoubleTruncates", omu_PrimNumber(-2.9, DataTypeEnm::INT), "-2"},
        // Integers go through a 32-bit conversion, on purpose.
        NumberRow{"IntWrapsToMinusOne", omu_PrimNumber(4294967295.0, DataTypeEnm::INT), "-1"},
        NumberRow{"IntWrapsToLeast", omu_PrimNumber(2147483648.0, DataTypeEnm::INT), "-2147483648"},
        NumberRow{"IntWrapsToZero", omu_PrimNumber(4294967296.0, DataTypeEnm::INT), "0"},
        NumberRow{"IntOfNaN", omu_PrimNumber(NOT_A_NUMBER, DataTypeEnm::INT), "0"},
        NumberRow{"IntOfInfinity", omu_PrimNumber(INF, DataTypeEnm::INT), "0"},
        NumberRow{"IntBeyond64Bits", omu_PrimNumber(9223372036854775808.0, DataTypeEnm::INT), "0"},
        NumberRow{"IntAtLeast64Bits", omu_PrimNumber(-9223372036854775808.0, DataTypeEnm::INT), "0"},
        NumberRow{"IntInside64Bits", omu_PrimNumber(9223372036854774784.0, DataTypeEnm::INT), "-1024"},
        NumberRow{"UnsignedOfNaN", omu_PrimNumber(NOT_A_NUMBER, DataTypeEnm::UINT), "0"},
        NumberRow{"UnsignedOfNegative", omu_PrimNumber(-1.0, DataTypeEnm::UINT), "0"},
        NumberRow{"UnsignedBeyond64Bits", omu_PrimNumber(18446744073709551616.0, DataTypeEnm::UINT), "0"},
        NumberRow{"Double", omu_PrimNumber(7.0), "7.0"}, NumberRow{"Zero", omu_PrimNumber(0.0), "0.0"},
        NumberRow{"NegativeZero", omu_PrimNumber(-0.0), "-0.0"},
        NumberRow{"Fraction", omu_PrimNumber(0.1), "0.1"},
        NumberRow{"Float", omu_PrimNumber(0.1f), "0.100000001490116"},
        NumberRow{"FloatKeepsTheDouble", omu_PrimNumber(0.1, DataTypeEnm::FLOAT), "0.1"},
        NumberRow{"HundredThousand", omu_PrimNumber(1e5), "100000.0"},
        NumberRow{"LastFixed", omu_PrimNumber(1e14), "100000000000000.0"},
        NumberRow{"LastFixedDigits", omu_PrimNumber(999999999999999.0), "999999999999999.0"},
        NumberRow{"FirstScientific", omu_PrimNumber(1e15), "1e+15"},
        NumberRow{"RoundedToInteger", omu_PrimNumber(123456789012345.6), "123456789012346.0"},
        NumberRow{"RoundedToOne", omu_PrimNumber(0.99999999999999994), "1.0"},
        NumberRow{"RoundedToScientific", omu_PrimNumber(999999999999999.9), "1e+15"},
        NumberRow{"LastSmallFixed", omu_PrimNumber(0.0001), "0.0001"},
        NumberRow{"FirstSmallScientific", omu_PrimNumber(0.00001), "1e-05"},
        NumberRow{"RoundedToSmallFixed", omu_PrimNumber(9.9999999999999995e-5), "0.0001"},
        NumberRow{"TwoDigitExponent", omu_PrimNumber(1.5e-7), "1.5e-07"},
        NumberRow{"ThreeDigitExponent", omu_PrimNumber(1e100), "1e+100"},
        NumberRow{"Largest", omu_PrimNumber(std::numeric_limits<double>::max()), "1.79769313486232e+308"},
        NumberRow{"LeastNormal", omu_PrimNumber(std::numeric_limits<double>::min()), "2.2250738585072e-308"},
        NumberRow{"LeastSubnormal", omu_PrimNumber(5e-324), "4.94065645841247e-324"},
        NumberRow{"Infinity", omu_PrimNumber(INF), "inf.0"},
        NumberRow{"NegativeInfinity", omu_PrimNumber(-INF), "-inf.0"},
        NumberRow{"NaN", omu_PrimNumber(std::copysign(NOT_A_NUMBER, 1.0)), "nan.0"},
        NumberRow{"NegativeNaN", omu_PrimNumber(std::copysign(NOT_A_NUMBER, -1.0)), "-nan.0"}),
    [](const auto& row) { return row.param.name; });

// The text before ".0" is printf's. Drawn where the two ways might part: any bits, few digits, and digits 16
// and 17 around one half.
class NumberTextAgainstPrintf : public testing::Test
{
protected:
    void Hold(double value)
    {
        const std::string printed = Printed(value);
        ASSERT_EQ(General(value), printed) << std::hexfloat << value;
        const bool bare = printed.find_first_of(".e") == std::string::npos;
        ASSERT_EQ(Float(value), bare ? printed + ".0" : printed) << std::hexfloat << value;
        ++(bare ? bare_ : other_);
    }

    std::mt19937_64 random_{20240131};
    int bare_ = 0;
    int other_ = 0;
};

TEST_F(NumberTextAgainstPrintf, AnyBits)
{
    for (int i = 0; i < 100'000; ++i)
        ASSERT_NO_FATAL_FAILURE(Hold(std::bit_cast<double>(random_())));
}

TEST_F(NumberTextAgainstPrintf, Subnormals)
{
    for (int i = 0; i < 20'000; ++i)
        ASSERT_NO_FATAL_FAILURE(Hold(std::bit_cast<double>(random_() >> (12 + random_() % 50))));
}

TEST_F(NumberTextAgainstPrintf, DecimalsAndTheirNeighbours)
{
    for (int i = 0; i < 100'000; ++i)
    {
        const double digits = static_cast<double>(random_() % 2'000'000'000'000'000u);
        const double value = digits / std::pow(10.0, static_cast<double>(random_() % 20));
        ASSERT_NO_FATAL_FAILURE(Hold(value));
        ASSERT_NO_FATAL_FAILURE(Hold(std::nextafter(value, INF)));
        ASSERT_NO_FATAL_FAILURE(Hold(-std::nextafter(value, 0.0)));
    }
    EXPECT_GT(bare_, 1000);
    EXPECT_GT(other_, 1000);
}

TEST_F(NumberTextAgainstPrintf, SixteenthDigitFive)
{
    for (int i = 0; i < 100'000; ++i)
    {
        // Fifteen digits and a five, which a double can only meet nearly, or exactly as a dyadic fraction.
        const double digits = static_cast<double>(100'000'000'000'000u + random_() % 800'000'000'000'000u);
        ASSERT_NO_FATAL_FAILURE(Hold(digits + 0.5));
        ASSERT_NO_FATAL_FAILURE(
            Hold((digits * 10.0 + 5.0) * std::pow(10.0, static_cast<double>(random_() % 40) - 20.0)));
    }
}

TEST(NumberText, WritesInsideItsBuffer)
{
    std::mt19937_64 random{5};
    std::size_t longest = 0;
    for (int i = 0; i < 50'000; ++i)
    {
        char text[omu_NumberText::SIZE + 8];
        std::fill(std::begin(text), std::end(text), '#');
        const double value = std::bit_cast<double>(random() | 0x8000000000000000u);
        const char* end = omu_NumberText::Float(value, text);
        longest = std::max(longest, static_cast<std::size_t>(end - text));
        ASSERT_EQ(std::string(text + omu_NumberText::SIZE, 8), "########") << value;
    }
    EXPECT_GE(longest, 22u);
    EXPECT_LE(longest, omu_NumberText::SIZE);
}

// The longest rows that are copied in one go, with the sign before and ".0" behind.
TEST(NumberText, EveryPlaceOfThePointStaysInsideTheBuffer)
{
    double power = 1e-6;
    for (int exponent = -6; exponent <= 17; ++exponent, power *= 10.0)
    {
        char text[omu_NumberText::SIZE + 1];
        text[omu_NumberText::SIZE] = '#';
        const double value = -1.23456789012345678 * power;
        const std::string written(text, omu_NumberText::General(value, text));
        EXPECT_EQ(written, Printed(value));
        EXPECT_EQ(text[omu_NumberText::SIZE], '#');
    }
}

struct CommaPunctuation : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(NumberText, KnowsNoLocale)
{
    const std::locale former = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    EXPECT_EQ(omu_PrimNumber(1.5).AsString(0), "1.5");
    EXPECT_EQ(omu_PrimNumber(1234567).AsString(0), "1234567");
    EXPECT_EQ(omu_PrimNumber(4294967295u).AsString(0), "4294967295");
    std::locale::global(former);
}

TEST(NumberText, KnowsNoDecimalComma)
{
    const CommaLocale locale;
    if (!locale.IsActive())
        GTEST_SKIP() << "no locale with a decimal comma can be had";
    ASSERT_EQ(Printed(1.5), "1,5") << "the locale is to have an effect on printf";
    EXPECT_EQ(omu_PrimNumber(1.5).AsString(0), "1.5");
    EXPECT_EQ(omu_PrimNumber(1e15).AsString(0), "1e+15");
    EXPECT_EQ(omu_PrimNumber(2.2250738585072011e-308).AsString(0), "2.2250738585072e-308");
}
}
