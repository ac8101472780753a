// The process's tolerances: values, display factor, and that primitives read them when they are called.
#include <testing/GeometryTesting.h>
#include <testing/ToleranceGuard.h>

#include <gsl_StLine.h>
#include <nex_RangeException.h>

namespace
{
using namespace geometry;

TEST(Util, HoldsTheValuesOfTheHouse)
{
    gsl_Util util;
    EXPECT_TRUE(util.LinearTolerance() == 1e-06 && util.SquaredTolerance() == 1e-12 &&
                util.ParallelTolerance() == 1e-10 && util.CoarseTolerance() == 0.0001);
    for (int step = 1; step <= 5; ++step)
        EXPECT_EQ(util.AngleStep(step), 90 / std::pow(2, step)) << step;
    EXPECT_THROW((void)util.AngleStep(6), nex_RangeException);
    util.SetOldDisplayFactor(true);
    EXPECT_TRUE(util.DisplayFactor() == 15.0 && util.AngleStep(3) == 15.0);
    // The latest one constructed is the process's.
    EXPECT_EQ(&omi_Singleton<gsl_Util>::Instance(), &util);
}

TEST(Util, PrimitivesReadTheirToleranceWhenCalled)
{
    const ToleranceGuard guard;
    const gsl_Point aside(0.25, 0, 0);
    for (const bool coarse : {false, true})
    {
        gsl_Util::Instance().SetLinearTolerance(coarse ? 0.5 : 1e-6);
        gsl_Util::Instance().SetSquaredTolerance(coarse ? 0.25 : 1e-12);
        EXPECT_TRUE((ORIGIN == aside) == coarse && ORIGIN.IsOn(aside) == coarse &&
                    (X == X * 1.25) == coarse && (X * 0.25).Normalize() == !coarse &&
                    gsl_StLine(ORIGIN, Y).IsOn(gsl_StLine(aside, Y)) == coarse);
    }
}
}
