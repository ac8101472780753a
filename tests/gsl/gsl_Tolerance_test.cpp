// Two rules look like slips and are not: the bound is inclusive, and the relative test takes its scale from
// the first argument alone. Numbers of the tables are exact in binary.
#include <testing/GeometryTesting.h>

#include <gsl_utils.h>
#include <limits>

namespace
{
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

struct ToleranceRow
{
    const char* what;
    double a, b, tol;
    bool absolute, relative;
};

void PrintTo(const ToleranceRow& row, std::ostream* out)
{
    *out << row.what;
}

class Tolerance : public testing::TestWithParam<ToleranceRow>
{};

TEST_P(Tolerance, MatchesTable)
{
    const ToleranceRow& row = GetParam();
    EXPECT_EQ(gsl_RealEqual(row.a, row.b, row.tol), row.absolute);
    EXPECT_EQ(gsl_RealRelEqual(row.a, row.b, row.tol), row.relative);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Tolerance,
    testing::Values(ToleranceRow{"on the bound", 1.0, 1.25, 0.25, true, true},
                    ToleranceRow{"on the lower bound", 1.0, 0.75, 0.25, true, true},
                    ToleranceRow{"on the bound from zero", 0.0, 1e-10, 1e-10, true, true},
                    ToleranceRow{"just outside", 1.0, 1.2500001, 0.25, false, false},
                    ToleranceRow{"floor below one", 0.5, 0.75, 0.25, true, true},
                    ToleranceRow{"floor, decimal", 0.5, 0.5 + 1e-7, 1e-6, true, true},
                    ToleranceRow{"scale 1000", 1000.0, 1000.0005, 1e-6, false, true},
                    ToleranceRow{"scale 2 too small", 2.0, 3.25, 0.5, false, false},
                    ToleranceRow{"scale 3.25 suffices", 3.25, 2.0, 0.5, false, true},
                    ToleranceRow{"scale of a negative value", -4.0, -2.0, 0.5, false, true},
                    ToleranceRow{"tolerance 0, same", 3.0, 3.0, 0.0, true, true},
                    ToleranceRow{"tolerance 0, next", 1.0, 1.0 + 0x1p-52, 0.0, false, false},
                    ToleranceRow{"negative tolerance", 1.0, 1.0, -0.5, false, true},
                    ToleranceRow{"NaN on the left", NOT_A_NUMBER, 1.0, 0.25, true, true},
                    ToleranceRow{"NaN on the right", 1.0, NOT_A_NUMBER, 0.25, true, true},
                    ToleranceRow{"infinity and itself", INFINITE, INFINITE, 0.25, true, true},
                    ToleranceRow{"infinity and its negative", INFINITE, -INFINITE, 0.25, false, true},
                    ToleranceRow{"a number and infinity", 1.0, INFINITE, 0.25, false, false}));

// The bound is inclusive, but 1 + tol need not be tol above 1: whether it is depends on tol's bits.
TEST(Tolerance, SumOfOneAndToleranceMayRoundAway)
{
    for (const double tol : {1e-6, 1e-3, 0.25, 0.5})
    {
        EXPECT_TRUE(gsl_RealEqual(1.0, 1.0 + tol, tol)) << tol;
    }
    for (const double tol : {0.1, 1e-10, 1e-12})
    {
        EXPECT_FALSE(gsl_RealEqual(1.0, 1.0 + tol, tol)) << tol;
    }
}

TEST(Tolerance, IsUsableInConstantExpressions)
{
    static_assert(gsl_RealEqual(1.0, 1.25, 0.25) && !gsl_RealEqual(1.0, 1.5, 0.25));
}

TEST(Tolerance, LawsHoldAroundTheBound)
{
    GeometryDraw draw(1);
    int equal = 0;
    constexpr int DRAWS = 20000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const double tol = std::pow(10.0, draw.Number(-9, 1));
        const double a = draw.Number(-3, 3);
        const double b = a + draw.Number(-2, 2) * tol;
        const bool answer = gsl_RealEqual(a, b, tol);
        equal += answer ? 1 : 0;
        ASSERT_EQ(gsl_RealEqual(b, a, tol), answer) << a << " " << b << " " << tol;
        ASSERT_TRUE(!answer || gsl_RealEqual(a, b, 2 * tol)) << a << " " << b << " " << tol;
        // In extended precision, away from the bound by more than the rounding of the difference.
        const long double apart = std::abs(static_cast<long double>(b) - a);
        if (std::abs(apart - tol) > 1e-15L)
        {
            ASSERT_EQ(answer, apart < tol) << a << " " << b << " " << tol;
        }
        if (std::abs(a) <= 1.0)
        {
            ASSERT_EQ(gsl_RealRelEqual(a, b, tol), answer) << a << " " << b << " " << tol;
        }
        ASSERT_TRUE(gsl_RealRelEqual(a, a * (1 + 0.99 * tol), tol)) << a << " " << tol;
    }
    EXPECT_GT(equal, DRAWS / 3);
    EXPECT_LT(equal, 2 * DRAWS / 3);
}

TEST(Tolerance, EqualityIsNotTransitive)
{
    EXPECT_TRUE(gsl_RealEqual(0.0, 0.25, 0.25) && gsl_RealEqual(0.25, 0.5, 0.25));
    EXPECT_FALSE(gsl_RealEqual(0.0, 0.5, 0.25));
}

TEST(Tolerance, ArraysFailAtTheFirstDifference)
{
    const double a[] = {0.0, 1.0, 2.0};
    const double b[] = {0.25, 1.0, 2.5};
    EXPECT_TRUE(gsl_RealArrEqual(2, a, b, 0.25));
    EXPECT_FALSE(gsl_RealArrEqual(3, a, b, 0.25));
    for (const int nothing : {0, -1})
    {
        EXPECT_TRUE(gsl_RealArrEqual(nothing, nullptr, nullptr, 0.25));
        EXPECT_TRUE(gsl_RealArrRelEqual(nothing, nullptr, nullptr, 0.25));
    }
}

// The scalar form has a floor of rel below 1; the array form has none, except for a product of exactly zero.
TEST(Tolerance, ArrayFormHasNoFloor)
{
    struct Row
    {
        const char* what;
        double a, b, rel;
        bool array, scalar;
    };
    const Row rows[] = {{"zero takes rel", 0.0, 0.25, 0.25, true, true},
                        {"just beyond rel", 0.0, 0.2500001, 0.25, false, false},
                        {"small value: no floor", 0x1p-10, 0x1p-10 + 0x1p-11, 0.25, false, true},
                        {"small value, on its own bound", 0x1p-10, 0x1p-10 + 0x1p-12, 0.25, true, true},
                        {"product underflows to zero", 1e-320, 0.25, 1e-10, false, false},
                        {"product underflows, within rel", 1e-320, 1e-11, 1e-10, true, true},
                        {"large value", 1000.0, 1250.0, 0.25, true, true},
                        {"negative value", -1000.0, -750.0, 0.25, true, true},
                        {"NaN", NOT_A_NUMBER, 1.0, 0.25, true, true}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(gsl_RealArrRelEqual(1, &row.a, &row.b, row.rel), row.array);
        EXPECT_EQ(gsl_RealRelEqual(row.a, row.b, row.rel), row.scalar);
    }
}
}
