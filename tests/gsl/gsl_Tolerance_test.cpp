// Two rules look like slips and are not: the bound is inclusive, and the relative test takes its scale from
// the first argument alone. Numbers of the tables are exact in binary.
#include <testing/GeometryTesting.h>

#include <gsl_utils.h>
#include <limits>

namespace
{
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

// The scalar relative form has a floor of tol below 1; the array form has none, except for a product of
// exactly zero.
TEST(Tolerance, MatchesTable)
{
    struct Row
    {
        const char* what;
        double a, b, tol;
        const char* answers; // absolute, relative, relative of arrays
    };
    const Row rows[] = {{"on the bound", 1.0, 1.25, 0.25, "TTT"},
                        {"on the lower bound", 1.0, 0.75, 0.25, "TTT"},
                        {"on the bound from zero", 0.0, 1e-10, 1e-10, "TTT"},
                        {"just outside", 1.0, 1.2500001, 0.25, "FFF"},
                        {"floor below one", 0.5, 0.75, 0.25, "TTF"},
                        {"floor, decimal", 0.5, 0.5 + 1e-7, 1e-6, "TTT"},
                        {"scale 1000", 1000.0, 1000.0005, 1e-6, "FTT"},
                        {"scale 2 too small", 2.0, 3.25, 0.5, "FFF"},
                        {"scale 3.25 suffices", 3.25, 2.0, 0.5, "FTT"},
                        {"scale of a negative value", -4.0, -2.0, 0.5, "FTT"},
                        {"small value: no floor", 0x1p-10, 0x1p-10 + 0x1p-11, 0.25, "TTF"},
                        {"small value, on its own bound", 0x1p-10, 0x1p-10 + 0x1p-12, 0.25, "TTT"},
                        {"product underflows to zero", 1e-320, 0.25, 1e-10, "FFF"},
                        {"product underflows, within rel", 1e-320, 1e-11, 1e-10, "TTT"},
                        {"tolerance 0, same", 3.0, 3.0, 0.0, "TTT"},
                        {"tolerance 0, next", 1.0, 1.0 + 0x1p-52, 0.0, "FFF"},
                        {"negative tolerance", 1.0, 1.0, -0.5, "FTT"},
                        {"NaN on the left", NOT_A_NUMBER, 1.0, 0.25, "TTT"},
                        {"NaN on the right", 1.0, NOT_A_NUMBER, 0.25, "TTT"},
                        {"infinity and itself", INFINITE, INFINITE, 0.25, "TTT"},
                        {"infinity and its negative", INFINITE, -INFINITE, 0.25, "FTT"},
                        {"a number and infinity", 1.0, INFINITE, 0.25, "FFF"}};
    for (const Row& row : rows)
    {
        std::string answers;
        for (const bool answer :
             {gsl_RealEqual(row.a, row.b, row.tol), gsl_RealRelEqual(row.a, row.b, row.tol),
              gsl_RealArrRelEqual(1, &row.a, &row.b, row.tol)})
            answers += answer ? 'T' : 'F';
        EXPECT_EQ(answers, row.answers) << row.what;
        EXPECT_EQ(gsl_RealArrEqual(1, &row.a, &row.b, row.tol), row.answers[0] == 'T') << row.what;
    }
}

static_assert(gsl_RealEqual(1.0, 1.25, 0.25) && !gsl_RealEqual(1.0, 1.5, 0.25));

TEST(Tolerance, ArraysNeedEveryElement)
{
    const double a[] = {1.0, 1.0, 1.0, 9.0};
    for (std::size_t k = 0; k < 3; ++k)
    {
        double b[] = {1.25, 0.75, 1.0, 1.0};
        EXPECT_TRUE(gsl_RealArrEqual(3, a, b, 0.25) && gsl_RealArrRelEqual(3, a, b, 0.25));
        b[k] = 1.5;
        EXPECT_FALSE(gsl_RealArrEqual(3, a, b, 0.25) || gsl_RealArrRelEqual(3, a, b, 0.25)) << k;
    }
    for (const int nothing : {0, -1})
        EXPECT_TRUE(gsl_RealArrEqual(nothing, nullptr, nullptr, 1) &&
                    gsl_RealArrRelEqual(nothing, nullptr, nullptr, 1));
}
}
