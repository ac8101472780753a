// Triangles: containment against points whose barycentric coordinates were chosen, sides, and projections.
#include <testing/GeometryTesting.h>

#include <gsl_Plane.h>
#include <gsl_Triangle.h>

namespace
{
using namespace geometry;
constexpr double L = 1e-6;
const gsl_Triangle RIGHT(ORIGIN, gsl_Point(4, 0, 0), gsl_Point(0, 3, 0));

/// A triangle that is no sliver.
gsl_Triangle Draw(GeometryDraw& draw)
{
    const Frame f = draw.Frame();
    const gsl_Point p = draw.Point(10);
    return {p, p + f.u * draw.Number(1, 9), p + f.u * draw.Number(-5, 9) + f.v * draw.Number(1, 9)};
}

TEST(Triangle, ReversedItKeepsTheFirstCorner)
{
    gsl_Triangle t = RIGHT;
    t.Reverse();
    EXPECT_TRUE(Same(t.Point(0), ORIGIN) && Same(t.Point(1), RIGHT.Point(2)) && Same(t.Normal(), Z * -1));
    EXPECT_TRUE(t.GetBBox() == gsl_BBox(ORIGIN, gsl_Point(4, 3, 0)) && t.Area() == 6.0);
}

// The barycentric coordinates and the height are drawn, so the answer is known.
TEST(Triangle, ContainsWhatHasNoNegativeCoordinate)
{
    GeometryDraw draw(71);
    for (int i = 0; i < 4000; ++i)
    {
        const gsl_Triangle t = Draw(draw);
        const double b = draw.Number(-0.5, 1.2);
        const double c = draw.Number(-0.5, 1.2);
        const double height = i % 2 == 0 ? draw.Number(-5, 5) : draw.Number(-1, 1) * 2e-6;
        if (std::min({std::abs(1 - b - c), std::abs(b), std::abs(c)}) < 1e-4 ||
            std::abs(std::abs(height) - L) < 1e-12)
            continue;
        const gsl_Point foot = t.Point(0) + (t.Point(1) - t.Point(0)) * b + (t.Point(2) - t.Point(0)) * c;
        const gsl_Point p = foot + t.Normal() * height;
        const bool expected = b + c < 1 && b > 0 && c > 0;
        ASSERT_EQ(t.ContainsProjectedPoint(p), expected) << b << " " << c;
        ASSERT_EQ(t.Contains(p), expected && std::abs(height) < L) << height;
        gsl_Point found = UNTOUCHED;
        ASSERT_TRUE(t.ProjectPoint(p, found));
        ASSERT_TRUE(Near(found, foot, 1e-12));
    }
}

TEST(Triangle, SidesReachOutwardsByTheTolerance)
{
    GeometryDraw draw(72);
    for (int i = 0; i < 2000; ++i)
    {
        const gsl_Triangle t = Draw(draw);
        const int side = draw.Whole(0, 2);
        const gsl_Vector along = t.Point((side + 1) % 3) - t.Point(side);
        gsl_Vector outward = along.CrossProduct(t.Normal());
        ASSERT_TRUE(outward.Normalize());
        const double beyond = draw.Number(-2, 2) * L;
        const gsl_Point p = t.Point(side) + along * draw.Number(0.01, 0.99) + outward * beyond;
        ASSERT_NEAR(t.TestProjectedPointAgainstSide(p + t.Normal() * 3.0, side), -beyond, 1e-13);
        ASSERT_TRUE(t.ContainsProjectedPoint(p + t.Normal() * 3.0) == (beyond < L) ||
                    std::abs(beyond - L) < 1e-12);
        ASSERT_TRUE(t.Contains(t.Point(side)));
        // The closest point on a side, clamped to it.
        const double place = draw.Number(-1, 2);
        gsl_Point found;
        const gsl_Point q = t.Point(side) + along * place + outward * draw.Number(-9, 9) + t.Normal();
        const gsl_Point closest = t.Point(side) + along * std::clamp(place, 0.0, 1.0);
        ASSERT_NEAR(t.ComputeClosestPointOnSide(q, side, found), q.GetDistance(closest), 1e-12);
        ASSERT_TRUE(Near(found, closest, 1e-12));
    }
}

// Beyond the tip of a needle the lines through its sides run within the tolerance for a long way; the sides
// do not.
TEST(Triangle, NeedleDoesNotReachBeyondItsTip)
{
    const gsl_Triangle needle(gsl_Point(0, -1e-4, 0), gsl_Point(100, 0, 0), gsl_Point(0, 1e-4, 0));
    EXPECT_TRUE(needle.ContainsProjectedPoint(gsl_Point(100 + 0.9e-6, 0, 0)));
    EXPECT_FALSE(needle.ContainsProjectedPoint(gsl_Point(100.1, 0, 0)));
}

TEST(Triangle, WithoutANormalContainsNothing)
{
    const gsl_Triangle line(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2));
    gsl_Point out = UNTOUCHED;
    EXPECT_FALSE(line.Contains(ORIGIN) || line.ContainsProjectedPoint(ORIGIN) ||
                 line.ProjectPoint(gsl_Point(1, 2, 3), out));
    EXPECT_TRUE(Same(line.Normal(), gsl_Vector()) && Same(out, UNTOUCHED));
}

TEST(Triangle, ProjectsUnlessAlongThePlane)
{
    gsl_Triangle itself = RIGHT;
    EXPECT_TRUE(itself.Project(gsl_Plane(OnAxis(2, 5), Z * -1), gsl_Vector(-1, 0, -2), itself));
    EXPECT_TRUE(Same(itself.Point(1), gsl_Point(6.5, 0, 5)) && Same(itself.Point(2), gsl_Point(2.5, 3, 5)));
    EXPECT_FALSE(RIGHT.Project(gsl_Plane(OnAxis(2, 1), Z), gsl_Vector(1, 0, 0.9e-10), itself));
    EXPECT_TRUE(Same(itself.Point(1), gsl_Point(6.5, 0, 5)));
    EXPECT_TRUE(RIGHT.Project(gsl_Plane(OnAxis(2, 1), Z), Z * 1e-30, itself)) << "steep but tiny";
}
}
