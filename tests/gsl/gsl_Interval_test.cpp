// Closed intervals.
#include <gsl_Interval.h>
#include <gtest/gtest.h>

namespace
{
TEST(Interval, SwapsItsEndsAndIncludesThem)
{
    constexpr gsl_Interval interval(5, 2);
    static_assert(interval.Low() == 2 && interval.High() == 5 && interval.Length() == 3);
    static_assert(interval.Contains(2) && interval.Contains(5) && !interval.Contains(5.0000001));
    static_assert(!interval.IsEmpty() && gsl_Interval(2, 2).Contains(2));
    EXPECT_TRUE(interval == gsl_Interval(2, 5));
}

TEST(Interval, DefaultIsEmpty)
{
    constexpr gsl_Interval empty;
    static_assert(empty.IsEmpty() && empty.Low() == 0 && empty.High() == -1 && empty.Length() == 0);
    static_assert(!empty.Contains(0) && !empty.Contains(-1) && !empty.Contains(-0.5));
    EXPECT_TRUE(empty == gsl_Interval());
    EXPECT_TRUE(empty != gsl_Interval(-1, 0));
}

TEST(Interval, InterpolatesBeyondItsEnds)
{
    constexpr gsl_Interval interval(2, 6);
    static_assert(interval.Interpolate(0) == 2 && interval.Interpolate(1) == 6 &&
                  interval.Interpolate(0.25) == 3);
    EXPECT_EQ(interval.Interpolate(-1), -2.0);
    EXPECT_EQ(interval.Interpolate(2), 10.0);
}

TEST(Interval, EqualityHasTheLinearToleranceInclusive)
{
    EXPECT_TRUE(gsl_Interval(0, 1) == gsl_Interval(1e-6, 1));
    EXPECT_TRUE(gsl_Interval(0, 1) != gsl_Interval(1.1e-6, 1));
    EXPECT_TRUE(gsl_Interval(-1, 0) == gsl_Interval(-1, -1e-6));
    EXPECT_TRUE(gsl_Interval(-1, 0) != gsl_Interval(-1, -1.1e-6));
}
}
