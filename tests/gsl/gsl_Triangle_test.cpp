// Triangles: containment against points whose barycentric coordinates were chosen, sides, and projections.
#include <testing/GeometryTesting.h>

#include <gsl_Plane.h>
#include <gsl_Triangle.h>
#include <nex_RangeException.h>
#include <optional>

namespace
{
constexpr double L = 1e-6;
const gsl_Triangle RIGHT(gsl_Point(0, 0, 0), gsl_Point(4, 0, 0), gsl_Point(0, 3, 0));
const gsl_Point UNTOUCHED(77, 78, 79);

/// A triangle that is no sliver: its height on the longest side is at least a tenth of it.
gsl_Triangle Draw(GeometryDraw& draw)
{
    for (;;)
    {
        const gsl_Triangle t(draw.Point(10), draw.Point(10), draw.Point(10));
        double longest = 0;
        for (int i = 0; i < 3; ++i)
        {
            longest = std::max(longest, t.Point(i).GetDistance(t.Point((i + 1) % 3)));
        }
        if (2 * t.Area() > 0.1 * longest * longest)
        {
            return t;
        }
    }
}

TEST(Triangle, CornersNormalAndArea)
{
    EXPECT_TRUE(Same(RIGHT.Point(1), gsl_Point(4, 0, 0)));
    EXPECT_TRUE(Same(RIGHT.Normal(), gsl_Vector(0, 0, 1)));
    EXPECT_EQ(RIGHT.Area(), 6.0);
    EXPECT_THROW((void)RIGHT.Point(3), nex_RangeException);
    EXPECT_THROW((void)RIGHT.Point(-1), nex_RangeException);
    gsl_Triangle other;
    EXPECT_EQ(other.Area(), 0.0);
    other.SetPoints(RIGHT.Point(0), RIGHT.Point(1), RIGHT.Point(2));
    EXPECT_TRUE(Same(other.Point(2), gsl_Point(0, 3, 0)));
}

TEST(Triangle, ReverseKeepsTheFirstCorner)
{
    gsl_Triangle t = RIGHT;
    t.Reverse();
    EXPECT_TRUE(Same(t.Point(0), RIGHT.Point(0)));
    EXPECT_TRUE(Same(t.Point(1), RIGHT.Point(2)));
    EXPECT_TRUE(Same(t.Point(2), RIGHT.Point(1)));
    EXPECT_TRUE(Same(t.Normal(), gsl_Vector(0, 0, -1)));
    EXPECT_EQ(t.Area(), 6.0);
}

TEST(Triangle, ExtentIsTheBoxOfTheCorners)
{
    GeometryDraw draw(70);
    for (int i = 0; i < 200; ++i)
    {
        const gsl_Triangle t = Draw(draw);
        double low[3];
        double high[3];
        t.GetExtent(low, high);
        const gsl_BBox box = t.GetBBox();
        ASSERT_TRUE(Same(box.Low(), gsl_Point(low)));
        ASSERT_TRUE(Same(box.High(), gsl_Point(high)));
        for (int k = 0; k < 3; ++k)
        {
            const gsl_Point& p = t.Point(k);
            ASSERT_TRUE(box.ContainsPoint(p));
            ASSERT_TRUE(p[k] >= low[k] && p[k] <= high[k]);
        }
        for (int k = 0; k < 3; ++k)
        {
            ASSERT_EQ(low[k], std::min({t.Point(0)[k], t.Point(1)[k], t.Point(2)[k]}));
            ASSERT_EQ(high[k], std::max({t.Point(0)[k], t.Point(1)[k], t.Point(2)[k]}));
        }
    }
}

// The coordinates are drawn, so the answer is known; points nearer to a side than some tolerances are left to
// the next test.
TEST(Triangle, ContainsWhatHasNoNegativeCoordinate)
{
    GeometryDraw draw(71);
    int inside = 0;
    int off = 0;
    constexpr int DRAWS = 6000;
    for (int i = 0; i < DRAWS; ++i)
    {
        gsl_Triangle t = Draw(draw);
        const double b = draw.Number(-0.5, 1.2);
        const double c = draw.Number(-0.5, 1.2);
        const double a = 1 - b - c;
        if (std::min({std::abs(a), std::abs(b), std::abs(c)}) < 1e-4)
        {
            continue;
        }
        const gsl_Point foot = t.Point(0) + (t.Point(1) - t.Point(0)) * b + (t.Point(2) - t.Point(0)) * c;
        const bool expected = a > 0 && b > 0 && c > 0;
        const double height = i % 2 == 0 ? draw.Number(-5, 5) : draw.Number(-1, 1) * 2e-6;
        const gsl_Point p = foot + t.Normal() * height;
        if (draw.Coin())
        {
            t.Reverse();
        }
        ASSERT_EQ(t.ContainsProjectedPoint(p), expected) << a << " " << b << " " << c;
        if (std::abs(std::abs(height) - L) > 1e-12)
        {
            ASSERT_EQ(t.Contains(p), expected && std::abs(height) < L) << height;
        }
        gsl_Point found = UNTOUCHED;
        ASSERT_TRUE(t.ProjectPoint(p, found));
        ASSERT_TRUE(Near(found, foot, 1e-12));
        inside += expected ? 1 : 0;
        off += expected && !t.Contains(p) ? 1 : 0;
    }
    EXPECT_GT(inside, DRAWS / 6);
    EXPECT_LT(inside, DRAWS / 2);
    EXPECT_GT(off, DRAWS / 12);
}

TEST(Triangle, ContainsAcrossItsSidesByTheTolerance)
{
    GeometryDraw draw(72);
    int inside = 0;
    constexpr int DRAWS = 6000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const gsl_Triangle t = Draw(draw);
        const int side = draw.Whole(0, 2);
        const gsl_Point& start = t.Point(side);
        const gsl_Vector along = t.Point((side + 1) % 3) - start;
        gsl_Vector outward = along.CrossProduct(t.Normal());
        ASSERT_TRUE(outward.Normalize());
        const double beyond = draw.Number(-2, 2) * L;
        const gsl_Point p = start + along * draw.Number(0.01, 0.99) + outward * beyond;
        ASSERT_NEAR(t.TestProjectedPointAgainstSide(p + t.Normal() * 3.0, side), -beyond, 1e-13);
        if (std::abs(beyond - L) > 1e-12)
        {
            ASSERT_EQ(t.ContainsProjectedPoint(p + t.Normal() * 3.0), beyond < L) << beyond;
        }
        inside += beyond < L ? 1 : 0;
    }
    EXPECT_GT(inside, DRAWS / 2);
    EXPECT_LT(inside, 9 * DRAWS / 10);
}

// Beyond the tip of a needle the lines through its sides run within the tolerance for a long way; the sides
// do not.
TEST(Triangle, NeedleDoesNotReachBeyondItsTip)
{
    const gsl_Triangle needle(gsl_Point(0, -1e-4, 0), gsl_Point(100, 0, 0), gsl_Point(0, 1e-4, 0));
    ASSERT_EQ(needle.Normal().Magnitude(), 1.0);
    EXPECT_TRUE(needle.ContainsProjectedPoint(gsl_Point(100, 0, 0)));
    EXPECT_TRUE(needle.ContainsProjectedPoint(gsl_Point(100 + 0.9e-6, 0, 0)));
    EXPECT_FALSE(needle.ContainsProjectedPoint(gsl_Point(100.1, 0, 0)));
    for (int side = 0; side < 3; ++side)
    {
        EXPECT_GT(needle.TestProjectedPointAgainstSide(gsl_Point(100.1, 0, 0), side), -L) << side;
    }
}

TEST(Triangle, CornersAndSidesAreInside)
{
    GeometryDraw draw(73);
    for (int i = 0; i < 500; ++i)
    {
        const gsl_Triangle t = Draw(draw);
        for (int k = 0; k < 3; ++k)
        {
            ASSERT_TRUE(t.Contains(t.Point(k)));
            ASSERT_TRUE(t.Contains(t.Point(k) + (t.Point((k + 1) % 3) - t.Point(k)) * draw.Number(0, 1)));
        }
    }
}

// The closest point by golden section on the side.
TEST(Triangle, ClosestPointOnASide)
{
    GeometryDraw draw(74);
    int clamped = 0;
    constexpr int DRAWS = 1000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const gsl_Triangle t = Draw(draw);
        const int side = draw.Whole(0, 2);
        const gsl_Point p = draw.Point(15);
        const auto at = [&](double s) {
            return t.Point(side) + (t.Point((side + 1) % 3) - t.Point(side)) * s;
        };
        double low = 0;
        double high = 1;
        for (int step = 0; step < 100; ++step)
        {
            const double first = low + (high - low) * 0.381966;
            const double second = low + (high - low) * 0.618034;
            (p.GetDistance(at(first)) < p.GetDistance(at(second)) ? high : low) =
                p.GetDistance(at(first)) < p.GetDistance(at(second)) ? second : first;
        }
        gsl_Point out;
        const double distance = t.ComputeClosestPointOnSide(p, side, out);
        ASSERT_NEAR(distance, p.GetDistance(at(low)), 1e-9);
        ASSERT_NEAR(distance, p.GetDistance(out), 1e-13);
        ASSERT_TRUE(Near(out, at(low), 1e-5));
        clamped += Near(out, at(0), 1e-9) || Near(out, at(1), 1e-9) ? 1 : 0;
    }
    EXPECT_GT(clamped, DRAWS / 5);
    EXPECT_LT(clamped, 4 * DRAWS / 5);
    gsl_Point p(2, -3, 0);
    EXPECT_EQ(RIGHT.ComputeClosestPointOnSide(p, 0, p), 3.0) << "the result may be the point itself";
    EXPECT_TRUE(Same(p, gsl_Point(2, 0, 0)));
}

TEST(Triangle, SidesOutsideAreRefused)
{
    gsl_Point out = UNTOUCHED;
    for (const int side : {-1, 3})
    {
        EXPECT_THROW((void)RIGHT.TestProjectedPointAgainstSide(out, side), nex_RangeException);
        EXPECT_THROW((void)RIGHT.ComputeClosestPointOnSide(out, side, out), nex_RangeException);
    }
    EXPECT_TRUE(Same(out, UNTOUCHED));
}

TEST(Triangle, WithoutANormalContainsNothing)
{
    const gsl_Triangle flat[] = {gsl_Triangle(),
                                 gsl_Triangle(gsl_Point(0, 0, 0), gsl_Point(1, 1, 1), gsl_Point(2, 2, 2)),
                                 gsl_Triangle(gsl_Point(0, 0, 0), gsl_Point(0, 0, 0), gsl_Point(2, 2, 2))};
    for (const gsl_Triangle& t : flat)
    {
        EXPECT_TRUE(Same(t.Normal(), gsl_Vector(0, 0, 0)));
        EXPECT_FALSE(t.Contains(gsl_Point(0, 0, 0)));
        EXPECT_FALSE(t.ContainsProjectedPoint(gsl_Point(0, 0, 0)));
        EXPECT_EQ(t.TestProjectedPointAgainstSide(gsl_Point(5, 0, 0), 2), 0.0);
        gsl_Point out = UNTOUCHED;
        EXPECT_FALSE(t.ProjectPoint(gsl_Point(1, 2, 3), out));
        EXPECT_TRUE(Same(out, UNTOUCHED));
    }
}

TEST(Triangle, ProjectsAlongADirection)
{
    GeometryDraw draw(75);
    for (int i = 0; i < 1000; ++i)
    {
        const gsl_Triangle t = Draw(draw);
        const gsl_Plane plane(draw.Point(10), draw.Unit());
        const gsl_Vector dir = draw.Unit() * draw.Number(0.01, 10);
        const double slope = std::abs(dir.DotProduct(plane.Direction())) / dir.Magnitude();
        if (slope < 1e-2)
        {
            continue;
        }
        gsl_Triangle moved;
        ASSERT_TRUE(t.Project(plane, dir, moved));
        for (int k = 0; k < 3; ++k)
        {
            ASSERT_NEAR(moved.Point(k).GetDistance(plane), 0, 1e-12 / slope);
            ASSERT_NEAR((moved.Point(k) - t.Point(k)).CrossProduct(dir).Magnitude() / dir.Magnitude(), 0,
                        1e-12 / slope);
        }
    }
    gsl_Triangle itself = RIGHT;
    EXPECT_TRUE(
        itself.Project(gsl_Plane(gsl_Point(0, 0, 5), gsl_Vector(0, 0, 1)), gsl_Vector(0, 0, -2), itself));
    EXPECT_TRUE(Same(itself.Point(1), gsl_Point(4, 0, 5)));
}

TEST(Triangle, RefusesToProjectAlongThePlane)
{
    struct Row
    {
        const char* what;
        gsl_Vector normal, dir;
        bool projected;
    };
    const Row rows[] = {{"along", gsl_Vector(0, 0, 1), gsl_Vector(1, 0, 0), false},
                        {"nearly along", gsl_Vector(0, 0, 1), gsl_Vector(1, 0, 0.9e-10), false},
                        {"just steep enough", gsl_Vector(0, 0, 1), gsl_Vector(1, 0, 1.1e-10), true},
                        {"steep but tiny", gsl_Vector(0, 0, 1), gsl_Vector(0, 0, 1e-30), true},
                        {"no direction", gsl_Vector(0, 0, 1), gsl_Vector(0, 0, 0), false},
                        {"no normal", gsl_Vector(0, 0, 0), gsl_Vector(0, 0, 1), false}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        gsl_Triangle out(UNTOUCHED, UNTOUCHED, UNTOUCHED);
        EXPECT_EQ(RIGHT.Project(gsl_Plane(gsl_Point(0, 0, 1), row.normal), row.dir, out), row.projected);
        EXPECT_TRUE(row.projected || Same(out.Point(0), UNTOUCHED));
    }
}
}
