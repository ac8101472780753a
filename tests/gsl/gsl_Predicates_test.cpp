// The questions about picked geometry, each at both sides of its bound.
#include <testing/GeometryTesting.h>

#include <gsl_Dot.h>
#include <gsl_Plane.h>
#include <gsl_Predicates.h>
#include <gsl_StLine.h>

namespace
{
TEST(Predicates, CoincidenceIsStrict)
{
    const gsl_Dot origin(0, 0, 0);
    const gsl_Dot inside(0, 0.9e-6, 0);
    const gsl_Dot bound(0, 1e-6, 0);
    EXPECT_TRUE(gsl_PointsAreCoincident(&origin, &origin));
    EXPECT_TRUE(gsl_PointsAreCoincident(&origin, &inside));
    EXPECT_FALSE(gsl_PointsAreCoincident(&origin, &bound));
}

TEST(Predicates, LinesAndPlanes)
{
    const gsl_StLine a(gsl_Point(0, 0, 0), gsl_Vector(1, 0, 0));
    const gsl_StLine parallel(gsl_Point(0, 0, 1), gsl_Vector(-1, 0, 0.9e-9));
    const gsl_StLine tilted(gsl_Point(0, 0, 0), gsl_Vector(1, 0, 1.1e-9));
    const gsl_StLine skew(gsl_Point(0, 0, 1), gsl_Vector(0, 1, 0));
    EXPECT_TRUE(gsl_LinesAreParallel(&a, &parallel));
    EXPECT_FALSE(gsl_LinesAreParallel(&a, &tilted));
    EXPECT_TRUE(gsl_LinesAreSkew(&a, &skew));
    EXPECT_TRUE(gsl_LinesAreSkew(&a, &parallel)) << "they do not meet, parallel as they are";
    EXPECT_FALSE(gsl_LinesAreSkew(&a, &tilted));
    const gsl_Plane floor(gsl_Point(0, 0, 0), gsl_Vector(0, 0, 1));
    const gsl_Plane ceiling(gsl_Point(0, 0, 9), gsl_Vector(0, 0.9e-9, -1));
    const gsl_Plane wall(gsl_Point(0, 0, 0), gsl_Vector(0, 1, 0));
    EXPECT_TRUE(gsl_PlanesAreParallel(&floor, &ceiling));
    EXPECT_FALSE(gsl_PlanesAreParallel(&floor, &wall));
}

// Decided by the sine of the edges alone: the size of the triangle does not matter.
TEST(Predicates, CollinearPoints)
{
    struct Row
    {
        const char* what;
        double size, rise;
        bool collinear;
    };
    const Row rows[] = {{"straight", 1, 0, true},
                        {"sine below", 1, 0.9e-10, true},
                        {"sine above", 1, 1.1e-10, false},
                        {"tiny and real", 1e-12, 1, false},
                        {"huge and straight", 1e12, 0.9e-10, true},
                        {"one point", 0, 0, true}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        const gsl_Point p1(0, 0, 0);
        const gsl_Point p2(row.size, 0, 0);
        const gsl_Point p3(2 * row.size, row.rise * row.size, 0);
        gsl_Vector normal(7, 7, 7);
        EXPECT_EQ(gsl_NormalToThreePoints(p1, p2, p3, normal), !row.collinear);
        EXPECT_TRUE(Same(normal, gsl_Vector(0, 0, row.collinear ? 0 : 1)));
        const gsl_Dot d1(p1);
        const gsl_Dot d2(p2);
        const gsl_Dot d3(p3);
        EXPECT_EQ(gsl_ThreePointsColinear(&d1, &d2, &d3), row.collinear);
    }
}
}
