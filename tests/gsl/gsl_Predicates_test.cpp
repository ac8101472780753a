// Three points in a row, at both sides of the bound; the predicates of pairs stand in the tables of points,
// lines and planes.
#include <testing/GeometryTesting.h>

#include <gsl_Dot.h>
#include <gsl_Predicates.h>

namespace
{
using namespace geometry;

TEST(Predicates, CollinearPoints)
{
    for (const double size : {1.0, 1e-12, 1e12})
        for (const double sine : {0.0, 0.9e-10, 1.1e-10, 1.0})
        {
            const gsl_Dot dots[] = {gsl_Dot(ORIGIN), gsl_Dot(size, 0, 0), gsl_Dot(2 * size, sine * size, 0)};
            gsl_Vector normal(7, 7, 7);
            EXPECT_EQ(
                gsl_NormalToThreePoints(dots[0].GetPoint(), dots[1].GetPoint(), dots[2].GetPoint(), normal),
                sine > 1e-10);
            EXPECT_TRUE(Same(normal, sine > 1e-10 ? Z : gsl_Vector())) << size << " " << sine;
            EXPECT_EQ(gsl_ThreePointsColinear(&dots[0], &dots[1], &dots[2]), sine <= 1e-10);
        }
}
}
