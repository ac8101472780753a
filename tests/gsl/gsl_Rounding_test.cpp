// Comparison and rounding by digits. The oracle works on the decimal text of the exact binary value.
#include <testing/GeometryTesting.h>

#include <gsl_utils.h>
#include <limits>
#include <nex_PrimException.h>

namespace
{
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

// 1.0, 10.0, 100.0 and 0.1 have the same digits: the exponent is dropped, on purpose. 9.99 has others.
TEST(RealEqualDig, DropsTheExponent)
{
    for (int digits = 1; digits < 16; ++digits)
    {
        EXPECT_TRUE(gsl_RealEqualDig(1.0, 10.0, digits) && gsl_RealEqualDig(0.1, 100.0, digits)) << digits;
        EXPECT_FALSE(gsl_RealEqualDig(1.0, -10.0, digits) || gsl_RealEqualDig(1.0, 0.0, digits) ||
                     gsl_RealEqualDig(9.99, 10.0, digits))
            << digits;
    }
}

TEST(RealEqualDig, MatchesTable)
{
    struct Row
    {
        const char* what;
        double a, b;
        int digits;
        bool equal;
    };
    const Row rows[] = {{"exact equality first", 0.0, -0.0, 20, true},
                        {"16 digits", 1.0, 1.0000001, 16, false},
                        {"7 digits", 1.0, 1.0000001, 7, true},
                        {"8 digits", 1.0, 1.0000001, 8, false},
                        {"15 digits need 64 bits", 1.23456789012345, 1.23456789012344, 15, false},
                        {"15 digits, same", 1.234567890123450, 1.234567890123451, 15, true},
                        {"half goes up", 1.25, 1.3, 2, true},
                        {"half goes up below zero", -1.25, -1.3, 2, true},
                        {"signs differ", 1.5, -1.5, 1, false},
                        {"no digits: 0.15 and 0.4 of a unit", 1.5, 4.0, 0, true},
                        {"no digits: 0.5 of a unit goes up", 5.0, 4.0, 0, false},
                        {"scale infinite, differ", 1e-320, 2e-320, 15, false},
                        {"scale infinite, same", 1e-320, 1e-320, 15, true},
                        {"NaN", NOT_A_NUMBER, NOT_A_NUMBER, 3, false},
                        {"infinity and itself", INFINITE, INFINITE, 3, true},
                        {"infinity and a number", INFINITE, 1.0, 3, false},
                        {"least int of digits", 1.0, 2.0, std::numeric_limits<int>::min(), true}};
    for (const Row& row : rows)
    {
        EXPECT_EQ(gsl_RealEqualDig(row.a, row.b, row.digits), row.equal) << row.what;
        EXPECT_EQ(gsl_RealEqualDig(row.b, row.a, row.digits), row.equal) << row.what;
    }
}

TEST(RoundFloat, MatchesTable)
{
    struct Row
    {
        const char* what;
        double v;
        int digits;
        double rounded;
    };
    const Row rows[] = {{"half goes away from zero", 1250.0, 2, 1300.0},
                        {"to the next power of ten", 9.99, 2, 10.0},
                        {"a small value, quotient as it is", 0.00012345, 3, 0.00012300000000000001},
                        {"the product rounds down", 1.005, 3, 1.0},
                        {"16 digits", 1.23456789012345678, 16, 1.23456789012345678},
                        {"no digits", 5.0, 0, 10.0},
                        {"no digits, far above a unit", 123456.0, 0, 0.0},
                        {"scale not finite", 1e-320, 15, 1e-320},
                        {"scale zero", 123.0, -400, 123.0},
                        {"infinity", INFINITE, 3, INFINITE}};
    for (const Row& row : rows)
    {
        EXPECT_EQ(gsl_RoundFloat(row.v, row.digits), row.rounded) << row.what;
        EXPECT_EQ(gsl_RoundFloat(-row.v, row.digits), -row.rounded) << row.what;
    }
    EXPECT_TRUE(std::isnan(gsl_RoundFloat(NOT_A_NUMBER, 3)));
    EXPECT_TRUE(std::signbit(gsl_RoundFloat(-0.0, 3)));
}

TEST(Rint, HalvesGoTowardsPlusInfinity)
{
    // 0.49999999999999994 + 0.5 rounds to 1, and so would floor of the sum.
    for (const auto& [v, whole] : {std::pair{-2.5, -2.0},
                                   {2.5, 3.0},
                                   {-0.5, 0.0},
                                   {0.5, 1.0},
                                   {0.49999999999999994, 0.0},
                                   {-1.75, -2.0},
                                   {1.75, 2.0},
                                   {-1.25, -1.0},
                                   {4503599627370497.0, 4503599627370497.0}})
        EXPECT_EQ(gsl_rint(v), whole) << v;
}

TEST(Truncate, RoundsTheFractionAboveTheFloor)
{
    struct Row
    {
        const char* what;
        double v;
        int places;
        double result;
    };
    const Row rows[] = {{"down", 1.23456, 2, 1.23},
                        {"a half as the machine holds it", 1.235, 2, 1.24},
                        {"76.4999... of the fraction above -2", -1.235, 2, -1.24},
                        {"up, not truncated", 1.239, 2, 1.24},
                        {"1.005 is a little less", 1.005, 2, 1.0},
                        {"negative half", -0.5, 1, -0.5},
                        {"negative", -1.23456, 2, -1.23},
                        {"more places than digits", 0.1, 300, 0.1},
                        {"power of ten not finite", 0.1, 400, 0.1}};
    for (const Row& row : rows)
        EXPECT_EQ(gsl_Truncate(row.v, row.places), row.result) << row.what;
    for (const int places : {0, std::numeric_limits<int>::min()})
        try
        {
            (void)gsl_Truncate(1.5, places);
            ADD_FAILURE() << "must raise";
        }
        catch (const nex_PrimException& raised)
        {
            EXPECT_EQ(raised.UserReport(), "places > 0");
            EXPECT_EQ(raised.Source(), "KTLOxuGsl.m/src/gsl_utils");
        }
}

// Single precision after every step: readings with x rounded first, with a double product or with repeated
// squaring all differ from these.
TEST(Power, KeepsTheFloatProduct)
{
    struct Row
    {
        const char* what;
        double x;
        int n;
        double result;
    };
    const Row rows[] = {{"exact", 2.0, -3, 0.125},
                        {"zero to a negative power", 0.0, -1, 0.0},
                        {"zero to the power 0", 0.0, 0, 0.0},
                        {"power 0", 5.0, 0, 1.0},
                        {"eighth digit", 1.1, 10, 2.5937426090240479},
                        {"first power is rounded", 1.1, 1, 1.1000000238418579},
                        {"negative base, odd", -2.0, 3, -8.0},
                        {"negative base, even", -2.0, -2, 0.25},
                        {"beyond float", 10.0, 39, INFINITE},
                        {"below float", 10.0, -46, 0.0},
                        {"reciprocal beyond float", 1e-50, -1, INFINITE}};
    for (const Row& row : rows)
        EXPECT_EQ(gsl_Power(row.x, row.n), row.result) << row.what;
    for (int n = -30; n <= 30; ++n)
        EXPECT_NEAR(gsl_Power(-1.37, n) / std::pow(-1.37, n), 1.0, (std::abs(n) + 1) * 0x1p-24) << n;
}
}
