// The process's tolerances: values, display factor, and that every primitive reads them when it is called.
#include <testing/ToleranceGuard.h>

#include <gsl_Interval.h>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_Point.h>
#include <gsl_StLine.h>
#include <gsl_Triangle.h>
#include <gsl_Util.h>
#include <gtest/gtest.h>
#include <nex_RangeException.h>
#include <omi_gettimecounter.h>

namespace
{
TEST(Util, HoldsTheValuesOfTheHouse)
{
    const double before = omi_gettimecounter();
    gsl_Util util;
    EXPECT_TRUE(util.CreationTime() >= before && util.CreationTime() <= omi_gettimecounter());
    EXPECT_TRUE(util.LinearTolerance() == 1e-06 && util.SquaredTolerance() == 1e-12 &&
                util.ParallelTolerance() == 1e-10 && util.CoarseTolerance() == 0.0001 &&
                util.Reserved() == 0.0);
    const double ladder[] = {45.0, 22.5, 11.25, 5.625, 2.8125};
    for (int step = 1; step <= 5; ++step)
        EXPECT_EQ(util.AngleStep(step), ladder[step - 1]) << step;
    for (const int outside : {0, 6})
        EXPECT_THROW((void)util.AngleStep(outside), nex_RangeException);
    util.SetOldDisplayFactor(true);
    EXPECT_TRUE(util.DisplayFactor() == 15.0 && util.AngleStep(3) == 15.0 && util.AngleStep(2) == 22.5);
    util.SetOldDisplayFactor(false);
    EXPECT_EQ(util.DisplayFactor(), 11.25);
    // The latest one constructed is the process's.
    EXPECT_EQ(&omi_Singleton<gsl_Util>::Instance(), &util);
}

// One row a question that depends on a tolerance: its answer at the house value and at a coarse one.
struct ReadRow
{
    const char* what;
    bool (*ask)();
    bool fine, coarse;
};

const gsl_Triangle RIGHT(gsl_Point(0, 0, 0), gsl_Point(4, 0, 0), gsl_Point(0, 4, 0));
const gsl_Point ORIGIN(0, 0, 0);
const gsl_Point NEAR_ORIGIN(0.25, 0, 0);
const gsl_Point ABOVE(0, 0, 0.25);
const gsl_Vector ALONG(2, 0, 0);

gsl_Matrix Moved()
{
    gsl_Matrix matrix;
    matrix.SetTranslation(gsl_Vector(0.25, 0, 0));
    return matrix;
}

const ReadRow READS[] = {
    {"Point ==", [] { return ORIGIN == NEAR_ORIGIN; }, false, true},
    {"Point IsOn point", [] { return ORIGIN.IsOn(NEAR_ORIGIN); }, false, true},
    {"Point IsOn line", [] { return NEAR_ORIGIN.IsOn(gsl_StLine(ORIGIN, gsl_Vector(0, 2, 0))); }, false,
     true},
    {"Vector ==", [] { return gsl_Vector(1, 0, 0) == gsl_Vector(1.25, 0, 0); }, false, true},
    {"Vector Normalize", [] { return gsl_Vector(0.25, 0, 0).Normalize(); }, true, false},
    {"Vector from three points",
     [] { return gsl_Vector(ORIGIN, gsl_Point(1, 0, 0), gsl_Point(2, 0.25, 0)).Magnitude() == 1.0; }, true,
     false},
    {"Matrix ==", [] { return Moved() == gsl_Matrix(); }, false, true},
    {"Line IsOn line", [] { return gsl_StLine(ORIGIN, ALONG).IsOn(gsl_StLine(ABOVE, ALONG)); }, false, true},
    {"Triangle Contains", [] { return RIGHT.Contains(gsl_Point(1, 1, 0.25)); }, false, true},
    {"Interval ==", [] { return gsl_Interval(0, 1) == gsl_Interval(0.25, 1); }, false, true},
};

TEST(Util, EveryPrimitiveReadsItsToleranceWhenCalled)
{
    const ToleranceGuard guard;
    for (const ReadRow& row : READS)
        EXPECT_EQ(row.ask(), row.fine) << row.what;
    gsl_Util::Instance().SetLinearTolerance(0.5);
    gsl_Util::Instance().SetSquaredTolerance(0.25);
    gsl_Util::Instance().SetParallelTolerance(0.5);
    for (const ReadRow& row : READS)
        EXPECT_EQ(row.ask(), row.coarse) << row.what;
}
}
