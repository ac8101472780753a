// The process's tolerances: values, display factor, and that every primitive reads them when it is called.
#include <testing/ToleranceGuard.h>

#include <gsl_BBox.h>
#include <gsl_Interval.h>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_Point.h>
#include <gsl_Predicates.h>
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
    const gsl_Util util;
    EXPECT_EQ(util.LinearTolerance(), 1e-06);
    EXPECT_EQ(util.SquaredTolerance(), 1e-12);
    EXPECT_EQ(util.ParallelTolerance(), 1e-10);
    EXPECT_EQ(util.CoarseTolerance(), 0.0001);
    EXPECT_EQ(util.Reserved(), 0.0);
    const double ladder[] = {45.0, 22.5, 11.25, 5.625, 2.8125};
    for (int step = 1; step <= 5; ++step)
    {
        EXPECT_EQ(util.AngleStep(step), ladder[step - 1]) << step;
    }
    EXPECT_GE(util.CreationTime(), before);
    EXPECT_LE(util.CreationTime(), omi_gettimecounter());
    EXPECT_THROW((void)util.AngleStep(0), nex_RangeException);
    EXPECT_THROW((void)util.AngleStep(6), nex_RangeException);
}

TEST(Util, OldDisplayFactorIsFifteenDegrees)
{
    gsl_Util util;
    util.SetOldDisplayFactor(true);
    EXPECT_EQ(util.DisplayFactor(), 15.0);
    EXPECT_EQ(util.AngleStep(3), 15.0);
    EXPECT_EQ(util.AngleStep(2), 22.5);
    util.SetOldDisplayFactor(false);
    EXPECT_EQ(util.DisplayFactor(), 11.25);
}

TEST(Util, AConstructedOneReplacesTheInstance)
{
    gsl_Util& standing = gsl_Util::Instance();
    EXPECT_EQ(&standing, &omi_Singleton<gsl_Util>::Instance());
    {
        gsl_Util other;
        other.SetSquaredTolerance(4.0);
        EXPECT_EQ(&gsl_Util::Instance(), &other);
        EXPECT_TRUE(gsl_Point(0, 0, 0) == gsl_Point(2, 0, 0));
    }
    EXPECT_FALSE(gsl_Point(0, 0, 0) == gsl_Point(2, 0, 0));
    EXPECT_EQ(gsl_Util::Instance().SquaredTolerance(), 1e-12);
}

// One row a question that depends on a tolerance: its answer at the house value and at a coarse one.
struct ReadRow
{
    const char* what;
    bool (*ask)();
    bool fine, coarse;
};

const gsl_Point ORIGIN(0, 0, 0);
const gsl_Point NEAR_ORIGIN(0.25, 0, 0);

const ReadRow READS[] = {
    {"Point ==", [] { return ORIGIN == NEAR_ORIGIN; }, false, true},
    {"Point IsOn point", [] { return ORIGIN.IsOn(NEAR_ORIGIN); }, false, true},
    {"Point IsOn plane", [] { return NEAR_ORIGIN.IsOn(gsl_Plane(ORIGIN, gsl_Vector(2, 0, 0))); }, false,
     true},
    {"Point IsOn line", [] { return NEAR_ORIGIN.IsOn(gsl_StLine(ORIGIN, gsl_Vector(0, 2, 0))); }, false,
     true},
    {"Vector ==", [] { return gsl_Vector(1, 0, 0) == gsl_Vector(1.25, 0, 0); }, false, true},
    {"Vector Normalize", [] { return gsl_Vector(0.25, 0, 0).Normalize(); }, true, false},
    {"Vector IsOrthogonal", [] { return gsl_Vector(1, 0, 0).IsOrthogonal(gsl_Vector(0.25, 1, 0)); }, false,
     true},
    {"Vector from three points",
     [] { return gsl_Vector(ORIGIN, gsl_Point(1, 0, 0), gsl_Point(2, 0.25, 0)).Magnitude() == 1.0; }, true,
     false},
    {"NormalToThreePoints",
     [] {
         gsl_Vector normal;
         return gsl_NormalToThreePoints(ORIGIN, gsl_Point(1, 0, 0), gsl_Point(2, 0.25, 0), normal);
     },
     true, false},
    {"Matrix ==",
     [] {
         gsl_Matrix moved;
         moved.SetTranslation(gsl_Vector(0.25, 0, 0));
         return moved == gsl_Matrix();
     },
     false, true},
    {"Line IsSkewed",
     [] {
         return gsl_StLine(ORIGIN, gsl_Vector(1, 0, 0))
             .IsSkewed(gsl_StLine(gsl_Point(0, 0, 0.25), gsl_Vector(0, 1, 0)));
     },
     true, false},
    {"Line IsOn line",
     [] {
         return gsl_StLine(ORIGIN, gsl_Vector(2, 0, 0))
             .IsOn(gsl_StLine(gsl_Point(0, 0, 0.25), gsl_Vector(2, 0, 0)));
     },
     false, true},
    {"Line valid", [] { return gsl_StLine(ORIGIN, NEAR_ORIGIN).IsValid(); }, true, false},
    {"Plane valid", [] { return gsl_Plane(ORIGIN, gsl_Vector(0.25, 0, 0)).IsValid(); }, true, false},
    {"Intersection gap",
     [] {
         gsl_Point out;
         return Intersection(gsl_Vector(1, 0, 0), ORIGIN, gsl_Vector(0, 1, 0), gsl_Point(0, 0, 0.25), out);
     },
     false, true},
    {"Triangle Contains",
     [] {
         return gsl_Triangle(ORIGIN, gsl_Point(4, 0, 0), gsl_Point(0, 4, 0)).Contains(gsl_Point(1, 1, 0.25));
     },
     false, true},
    {"Triangle foot near a side",
     [] {
         return gsl_Triangle(ORIGIN, gsl_Point(4, 0, 0), gsl_Point(0, 4, 0))
             .ContainsProjectedPoint(gsl_Point(1, -0.25, 7));
     },
     false, true},
    {"Triangle Project",
     [] {
         gsl_Triangle out;
         return gsl_Triangle(ORIGIN, gsl_Point(4, 0, 0), gsl_Point(0, 4, 0))
             .Project(gsl_Plane(ORIGIN, gsl_Vector(0, 0, 2)), gsl_Vector(1, 0, 0.25), out);
     },
     true, false},
    {"Interval ==", [] { return gsl_Interval(0, 1) == gsl_Interval(0.25, 1); }, false, true},
    {"BBox ==", [] { return gsl_BBox(ORIGIN) == gsl_BBox(NEAR_ORIGIN); }, false, true},
};

TEST(Util, EveryPrimitiveReadsItsToleranceWhenCalled)
{
    const ToleranceGuard guard;
    for (const ReadRow& row : READS)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.ask(), row.fine);
    }
    gsl_Util::Instance().SetLinearTolerance(0.5);
    gsl_Util::Instance().SetSquaredTolerance(0.25);
    gsl_Util::Instance().SetParallelTolerance(0.5);
    for (const ReadRow& row : READS)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.ask(), row.coarse);
    }
}

TEST(Util, GuardRestores)
{
    {
        const ToleranceGuard guard;
        gsl_Util::Instance().SetLinearTolerance(7);
        gsl_Util::Instance().SetSquaredTolerance(7);
        gsl_Util::Instance().SetParallelTolerance(7);
        gsl_Util::Instance().SetCoarseTolerance(7);
    }
    EXPECT_EQ(gsl_Util::Instance().LinearTolerance(), 1e-06);
    EXPECT_EQ(gsl_Util::Instance().SquaredTolerance(), 1e-12);
    EXPECT_EQ(gsl_Util::Instance().ParallelTolerance(), 1e-10);
    EXPECT_EQ(gsl_Util::Instance().CoarseTolerance(), 0.0001);
}
}
