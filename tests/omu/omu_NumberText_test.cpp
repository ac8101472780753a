// Numbers as text: against printf, and a table of what it does not settle.

#include <bit>
#include <cmath>
#include <cstdio>
#include <omu_NumberText.h>
#include <random>
#include <testing/CommaLocale.h>
#include <testing/ValueTesting.h>

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

std::string Printed(double value)
{
    char text[64];
    return std::string(text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.15lg", value)));
}

TEST(NumberText, OfOddNumbers)
{
    const std::pair<omu_PrimNumber, const char*> rows[] = {
        {omu_PrimNumber(std::numeric_limits<int>::min()), "-2147483648"},
        {omu_PrimNumber(18446744073709549568.0, DataTypeEnm::UINT), "18446744073709549568"},
        {omu_PrimNumber(-2.9, DataTypeEnm::INT), "-2"},
        // Integers go through a 32-bit conversion, on purpose.
        {omu_PrimNumber(4294967295.0, DataTypeEnm::INT), "-1"},
        {omu_PrimNumber(NOT_A_NUMBER, DataTypeEnm::INT), "0"},
        {omu_PrimNumber(INF, DataTypeEnm::INT), "0"},
        {omu_PrimNumber(9223372036854775808.0, DataTypeEnm::INT), "0"},
        {omu_PrimNumber(9223372036854774784.0, DataTypeEnm::INT), "-1024"},
        {omu_PrimNumber(NOT_A_NUMBER, DataTypeEnm::UINT), "0"},
        {omu_PrimNumber(-1.0, DataTypeEnm::UINT), "0"},
        {omu_PrimNumber(18446744073709551616.0, DataTypeEnm::UINT), "0"},
        {omu_PrimNumber(-0.0), "-0.0"},
        {omu_PrimNumber(0.1f), "0.100000001490116"},
        {omu_PrimNumber(1e5), "100000.0"},
        {omu_PrimNumber(1e15), "1e+15"},
        {omu_PrimNumber(999999999999999.9), "1e+15"},
        {omu_PrimNumber(1.5e-7), "1.5e-07"},
        {omu_PrimNumber(-INF), "-inf.0"},
        {omu_PrimNumber(std::copysign(NOT_A_NUMBER, 1.0)), "nan.0"},
        {omu_PrimNumber(std::copysign(NOT_A_NUMBER, -1.0)), "-nan.0"}};
    for (const auto& [number, text] : rows)
        EXPECT_EQ(Text(number), text);
}

// The text before ".0" is printf's, and stays inside its buffer. Drawn where the two ways might part: any
// bits, few digits, subnormal numbers, and digits 16 and 17 around one half.
TEST(NumberText, AgreesWithPrintf)
{
    std::mt19937_64 random{20240131};
    std::size_t longest = 0;
    int bare = 0;
    const auto hold = [&](double value) {
        char text[omu_NumberText::SIZE + 8];
        std::fill(std::begin(text), std::end(text), '#');
        const std::string printed = Printed(value);
        EXPECT_EQ(std::string(text, omu_NumberText::General(value, text)), printed) << std::hexfloat << value;
        const bool isBare = printed.find_first_of(".e") == std::string::npos;
        const std::string written(text, omu_NumberText::Float(value, text));
        EXPECT_EQ(written, isBare ? printed + ".0" : printed) << std::hexfloat << value;
        EXPECT_EQ(std::string(text + omu_NumberText::SIZE, 8), "########") << value;
        bare += isBare;
        longest = std::max(longest, written.size());
    };
    for (int i = 0; i < 50'000 && !HasFailure(); ++i)
    {
        hold(std::bit_cast<double>(random()));
        hold(std::bit_cast<double>(random() >> (12 + random() % 50)));
        const double digits = static_cast<double>(random() % 2'000'000'000'000'000u);
        const double value = digits / std::pow(10.0, static_cast<double>(random() % 20));
        for (const double near : {value, std::nextafter(value, INF), -std::nextafter(value, 0.0)})
            hold(near);
        // Fifteen digits and a five, which a double can only meet nearly, or exactly as a dyadic fraction.
        const double fifteen = static_cast<double>(100'000'000'000'000u + random() % 800'000'000'000'000u);
        hold(fifteen + 0.5);
        hold((fifteen * 10.0 + 5.0) * std::pow(10.0, static_cast<double>(random() % 40) - 20.0));
    }
    for (double power = 1e-6; power < 1e18; power *= 10.0) // every place of the point
        hold(-1.23456789012345678 * power);
    EXPECT_GE(longest, 22u);
    EXPECT_GT(bare, 1000);
}

TEST(NumberText, KnowsNoLocale)
{
    const CommaLocale locale;
    if (!locale.IsActive())
        GTEST_SKIP() << "no locale with a decimal comma can be had";
    EXPECT_EQ(Printed(1.5), "1,5");
    EXPECT_EQ(Text(omu_PrimNumber(1.5)), "1.5");
    EXPECT_EQ(Text(omu_PrimNumber(2.2250738585072011e-308)), "2.2250738585072e-308");
}
}
