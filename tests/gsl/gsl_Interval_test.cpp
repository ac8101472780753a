// Closed intervals.
#include <gsl_Interval.h>
#include <gtest/gtest.h>

namespace
{
TEST(Interval, SwapsItsEndsAndIncludesThem)
{
    constexpr gsl_Interval interval(6, 2);
    static_assert(interval.Low() == 2 && interval.High() == 6 && interval.Length() == 4);
    static_assert(interval.Contains(2) && interval.Contains(6) && !interval.Contains(6.0000001));
    static_assert(interval.Interpolate(0.25) == 3 && interval.Interpolate(-1) == -2);
    constexpr gsl_Interval empty;
    static_assert(empty.IsEmpty() && empty.Low() == 0 && empty.High() == -1 && empty.Length() == 0);
    static_assert(!empty.Contains(0) && !empty.Contains(-1) && !empty.Contains(-0.5));
    EXPECT_TRUE(gsl_Interval(0, 1) == gsl_Interval(1e-6, 1)) << "the tolerance is inclusive";
    EXPECT_TRUE(gsl_Interval(0, 1) != gsl_Interval(1.1e-6, 1));
    EXPECT_TRUE(gsl_Interval(-1, 0) != gsl_Interval(-1, -1.1e-6));
}
}
