// Comparison with a tolerance and by digits, rounding and powers. Two rules of the tolerance look like slips
// and are not: the bound is inclusive, and the relative test takes its scale from the first argument alone.
#include <gsl_utils.h>
#include <limits>
#include <nex_PrimException.h>
#include <testing/ExpectRaise.h>

namespace
{
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

// The scalar relative form has a floor of tol below 1; the array form has none, except for a product of
// exactly zero. Arrays need every element.
TEST(Tolerance, MatchesTable)
{
    const struct
    {
        const char* what;
        double a, b, tol;
        const char* answers; // absolute, relative, relative of arrays
    } rows[] = {{"on the bound", 1.0, 1.25, 0.25, "TTT"},
                {"on the bound from zero", 0.0, 1e-10, 1e-10, "TTT"},
                {"floor below one", 0.5, 0.75, 0.25, "TTF"},
                {"scale 1000", 1000.0, 1000.0005, 1e-6, "FTT"},
                {"scale 2 too small", 2.0, 3.25, 0.5, "FFF"},
                {"scale 3.25 suffices", 3.25, 2.0, 0.5, "FTT"},
                {"product underflows to zero", 1e-320, 1e-11, 1e-10, "TTT"},
                {"NaN on the left", NOT_A_NUMBER, 1.0, 0.25, "TTT"},
                {"a number and infinity", 1.0, INFINITE, 0.25, "FFF"}};
    for (const auto& row : rows)
    {
        const double a[] = {1.0, 1.0, row.a};
        const double b[] = {1.0, 1.0, row.b};
        std::string answers;
        for (const bool answer :
             {gsl_RealEqual(row.a, row.b, row.tol), gsl_RealRelEqual(row.a, row.b, row.tol),
              gsl_RealArrRelEqual(3, a, b, row.tol)})
            answers += answer ? 'T' : 'F';
        EXPECT_EQ(answers, row.answers) << row.what;
        EXPECT_EQ(gsl_RealArrEqual(3, a, b, row.tol), row.answers[0] == 'T') << row.what;
    }
}

TEST(RealEqualDig, MatchesTable)
{
    const struct
    {
        const char* what;
        double a, b;
        int digits;
        bool equal;
    } rows[] = {{"7 digits", 1.0, 1.0000001, 7, true},
                {"15 digits need 64 bits", 1.23456789012345, 1.23456789012344, 15, false},
                {"half goes up", 1.25, 1.3, 2, true},
                {"half goes up below zero", -1.25, -1.3, 2, true},
                {"the exponent is dropped, on purpose", 1.0, 10.0, 3, true},
                {"the sign is not", 1.0, -10.0, 3, false},
                {"NaN", NOT_A_NUMBER, NOT_A_NUMBER, 3, false}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(gsl_RealEqualDig(row.a, row.b, row.digits), row.equal) << row.what;
        EXPECT_EQ(gsl_RealEqualDig(row.b, row.a, row.digits), row.equal) << row.what;
    }
}

// Powers are kept in single precision after every step: readings with x rounded first, with a double product
// or with repeated squaring all differ from these.
TEST(Rounding, MatchesTable)
{
    const struct
    {
        const char* what;
        double (*call)(double, int);
        double v;
        int n;
        double result;
    } rows[] = {{"half goes away from zero", gsl_RoundFloat, 1250.0, 2, 1300.0},
                {"half goes away below zero", gsl_RoundFloat, -1250.0, 2, -1300.0},
                {"the product rounds down", gsl_RoundFloat, 1.005, 3, 1.0},
                {"no digits", gsl_RoundFloat, 5.0, 0, 10.0},
                {"scale not finite", gsl_RoundFloat, 1e-320, 15, 1e-320},
                {"76.4999... of the fraction above -2", gsl_Truncate, -1.235, 2, -1.24},
                {"up, not truncated", gsl_Truncate, 1.239, 2, 1.24},
                {"1.005 is a little less", gsl_Truncate, 1.005, 2, 1.0},
                {"power of ten not finite", gsl_Truncate, 0.1, 400, 0.1},
                {"zero to a negative power", gsl_Power, 0.0, -1, 0.0},
                {"eighth digit", gsl_Power, 1.1, 10, 2.5937426090240479},
                {"first power is rounded", gsl_Power, 1.1, 1, 1.1000000238418579},
                {"beyond float", gsl_Power, 10.0, 39, INFINITE}};
    for (const auto& row : rows)
        EXPECT_EQ(row.call(row.v, row.n), row.result) << row.what;
    EXPECT_RAISE(gsl_Truncate(1.5, 0), nex_PrimException, "places > 0");
    // To the integer, halves go towards plus infinity; 0.49999999999999994 + 0.5 rounds to 1.
    EXPECT_TRUE(gsl_rint(-2.5) == -2.0 && gsl_rint(2.5) == 3.0 && gsl_rint(0.49999999999999994) == 0.0);
}
}
