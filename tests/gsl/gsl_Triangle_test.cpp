// Triangles: containment against points whose barycentric coordinates were chosen, sides, and projections.
#include <testing/GeometryTesting.h>

#include <gsl_Plane.h>
#include <gsl_Triangle.h>
#include <nex_RangeException.h>

namespace
{
using namespace geometry;
constexpr double L = 1e-6;
const gsl_Triangle RIGHT(ORIGIN, gsl_Point(4, 0, 0), gsl_Point(0, 3, 0));

/// A triangle that is no sliver: its height on the longest side is at least a tenth of it.
gsl_Triangle Draw(GeometryDraw& draw)
{
    for (;;)
    {
        const gsl_Triangle t(draw.Point(10), draw.Point(10), draw.Point(10));
        double longest = 0;
        for (int i = 0; i < 3; ++i)
            longest = std::max(longest, t.Point(i).GetDistance(t.Point((i + 1) % 3)));
        if (2 * t.Area() > 0.1 * longest * longest)
            return t;
    }
}

TEST(Triangle, CornersNormalAndArea)
{
    gsl_Triangle t;
    EXPECT_EQ(t.Area(), 0.0);
    t.SetPoints(RIGHT.Point(0), RIGHT.Point(1), RIGHT.Point(2));
    EXPECT_TRUE(Same(t.Normal(), Z));
    EXPECT_EQ(t.Area(), 6.0);
    t.Reverse();
    EXPECT_TRUE(Same(t.Point(0), ORIGIN)) << "the first corner stays";
    EXPECT_TRUE(Same(t.Point(1), RIGHT.Point(2)) && Same(t.Point(2), RIGHT.Point(1)));
    EXPECT_TRUE(Same(t.Normal(), Z * -1));
    double low[3];
    double high[3];
    const gsl_Triangle mixed(gsl_Point(1, 5, 9), gsl_Point(2, 4, 7), gsl_Point(3, 6, 8));
    mixed.GetExtent(low, high);
    EXPECT_TRUE(Same(gsl_Point(low), gsl_Point(1, 4, 7)) && Same(gsl_Point(high), gsl_Point(3, 6, 9)));
    EXPECT_TRUE(mixed.GetBBox() == gsl_BBox(gsl_Point(low), gsl_Point(high)));
    gsl_Point out = UNTOUCHED;
    for (const int outside : {-1, 3})
    {
        EXPECT_THROW((void)RIGHT.Point(outside), nex_RangeException);
        EXPECT_THROW((void)RIGHT.TestProjectedPointAgainstSide(out, outside), nex_RangeException);
        EXPECT_THROW((void)RIGHT.ComputeClosestPointOnSide(out, outside, out), nex_RangeException);
    }
    EXPECT_TRUE(Same(out, UNTOUCHED));
}

// The barycentric coordinates and the height are drawn, so the answer is known.
TEST(Triangle, ContainsWhatHasNoNegativeCoordinate)
{
    GeometryDraw draw(71);
    int inside = 0;
    int off = 0;
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
        inside += expected;
        off += expected && !t.Contains(p);
    }
    EXPECT_GT(inside, 600);
    EXPECT_GT(off, 300);
    EXPECT_LT(off, inside - 100);
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
        if (std::abs(beyond - L) > 1e-12)
        {
            ASSERT_EQ(t.ContainsProjectedPoint(p + t.Normal() * 3.0), beyond < L) << beyond;
        }
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
    for (int side = 0; side < 3; ++side)
        EXPECT_GT(needle.TestProjectedPointAgainstSide(gsl_Point(100.1, 0, 0), side), -L) << side;
}

TEST(Triangle, WithoutANormalContainsNothing)
{
    for (const gsl_Triangle& t :
         {gsl_Triangle(), gsl_Triangle(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2)),
          gsl_Triangle(ORIGIN, ORIGIN, gsl_Point(2, 2, 2))})
    {
        EXPECT_TRUE(Same(t.Normal(), gsl_Vector()));
        gsl_Point out = UNTOUCHED;
        EXPECT_FALSE(t.Contains(ORIGIN) || t.ContainsProjectedPoint(ORIGIN) ||
                     t.ProjectPoint(gsl_Point(1, 2, 3), out));
        EXPECT_EQ(t.TestProjectedPointAgainstSide(gsl_Point(5, 0, 0), 2), 0.0);
        EXPECT_TRUE(Same(out, UNTOUCHED));
    }
}

TEST(Triangle, ProjectsUnlessAlongThePlane)
{
    struct Row
    {
        const char* what;
        gsl_Vector normal, dir;
        bool projected;
    };
    const Row rows[] = {{"along", Z, X, false},
                        {"nearly along", Z, gsl_Vector(1, 0, 0.9e-10), false},
                        {"just steep enough", Z, gsl_Vector(1, 0, 1.1e-10), true},
                        {"steep but tiny", Z, Z * 1e-30, true},
                        {"no direction", Z, gsl_Vector(), false},
                        {"no normal", gsl_Vector(), Z, false}};
    gsl_Triangle itself = RIGHT;
    EXPECT_TRUE(itself.Project(gsl_Plane(OnAxis(2, 5), Z * -1), gsl_Vector(-1, 0, -2), itself));
    EXPECT_TRUE(Same(itself.Point(1), gsl_Point(6.5, 0, 5)) && Same(itself.Point(2), gsl_Point(2.5, 3, 5)));
    for (const Row& row : rows)
    {
        gsl_Triangle out(UNTOUCHED, UNTOUCHED, UNTOUCHED);
        EXPECT_EQ(RIGHT.Project(gsl_Plane(OnAxis(2, 1), row.normal), row.dir, out), row.projected)
            << row.what;
        EXPECT_TRUE(row.projected || Same(out.Point(0), UNTOUCHED)) << row.what;
    }
}
}
