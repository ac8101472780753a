// Points: the exact comparison rules, distances and projections against constructions whose answer is known.
#include <testing/GeometryTesting.h>

#include <functional>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_Point.h>
#include <gsl_StLine.h>
#include <limits>
#include <nex_RangeException.h>
#include <sstream>

namespace
{
constexpr double L = 1e-6;
const gsl_Point ORIGIN(0, 0, 0);

gsl_Point OnAxis(int axis, double value)
{
    return {axis == 0 ? value : 0, axis == 1 ? value : 0, axis == 2 ? value : 0};
}

// Equality includes the bound, IsOn does not. Only from the origin is the distance exactly 1e-6.
TEST(PointEquality, BoundIsInclusiveForEqualAndStrictForIsOn)
{
    struct Row
    {
        const char* what;
        double apart;
        bool equal, on;
    };
    const Row rows[] = {{"on the bound", 1e-6, true, false},
                        {"outside", 1.1e-6, false, false},
                        {"inside", 0.9e-6, true, true},
                        {"the same place", 0.0, true, true}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        for (int axis = 0; axis < 3; ++axis)
        {
            for (const double sign : {1.0, -1.0})
            {
                const gsl_Point q = OnAxis(axis, sign * row.apart);
                EXPECT_EQ(ORIGIN == q, row.equal) << axis << " " << sign;
                EXPECT_EQ(q == ORIGIN, row.equal) << axis << " " << sign;
                EXPECT_EQ(ORIGIN != q, !row.equal) << axis << " " << sign;
                EXPECT_EQ(ORIGIN.IsOn(q), row.on) << axis << " " << sign;
                EXPECT_EQ(q.IsOn(ORIGIN), row.on) << axis << " " << sign;
            }
        }
    }
}

// Elsewhere the sum base + 1e-6 rounds, and both rules fall on one side.
TEST(PointEquality, AwayFromTheOriginRoundingDecides)
{
    for (const double base : {1.0, 10.0, 100.0})
    {
        EXPECT_TRUE(gsl_Point(base, 0, 0) == gsl_Point(base + 1e-6, 0, 0)) << base;
        EXPECT_TRUE(gsl_Point(base, 0, 0).IsOn(gsl_Point(base + 1e-6, 0, 0))) << base;
    }
    for (const double base : {0.1, 0.5, 3.0, -1.0})
    {
        EXPECT_FALSE(gsl_Point(base, 0, 0) == gsl_Point(base + 1e-6, 0, 0)) << base;
        EXPECT_FALSE(gsl_Point(base, 0, 0).IsOn(gsl_Point(base + 1e-6, 0, 0))) << base;
    }
}

TEST(PointEquality, FollowsTheSquaredDistanceAroundTheBound)
{
    GeometryDraw draw(10);
    int equal = 0;
    constexpr int DRAWS = 20000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const gsl_Point p = draw.Point(1e-3);
        const gsl_Point q = p + draw.Unit() * draw.Number(0.0, 2e-6);
        const long double dx = static_cast<long double>(q.X()) - p.X();
        const long double dy = static_cast<long double>(q.Y()) - p.Y();
        const long double dz = static_cast<long double>(q.Z()) - p.Z();
        const long double squared = dx * dx + dy * dy + dz * dz;
        if (std::abs(squared - 1e-12L) < 1e-24L)
        {
            continue;
        }
        ASSERT_EQ(p == q, squared < 1e-12L);
        ASSERT_EQ(q.IsOn(p), squared < 1e-12L);
        equal += p == q ? 1 : 0;
    }
    EXPECT_GT(equal, DRAWS / 3);
    EXPECT_LT(equal, 2 * DRAWS / 3);
}

TEST(PointEquality, IsNotTransitive)
{
    EXPECT_TRUE(OnAxis(0, -0.8e-6) == ORIGIN && ORIGIN == OnAxis(0, 0.8e-6));
    EXPECT_FALSE(OnAxis(0, -0.8e-6) == OnAxis(0, 0.8e-6));
}

TEST(PointEquality, NotANumberEqualsOnlyItself)
{
    const gsl_Point p(std::numeric_limits<double>::quiet_NaN(), 0, 0);
    const gsl_Point copy = p;
    const gsl_Point& same = p;
    EXPECT_TRUE(p == same);
    EXPECT_FALSE(p == copy);
    EXPECT_TRUE(p >= copy);
    EXPECT_FALSE(p > copy);
}

// Every pair of points of a small grid at once: dominance on all axes, and nothing like an order.
TEST(PointDominance, MatchesTheComponents)
{
    int common = 0;
    for (int i = 0; i < 27; ++i)
    {
        for (int j = 0; j < 27; ++j)
        {
            const gsl_Point p(i % 3, i / 3 % 3, i / 9);
            const gsl_Point q(j % 3, j / 3 % 3, j / 9);
            const bool greater = i % 3 > j % 3 && i / 3 % 3 > j / 3 % 3 && i / 9 > j / 9;
            const bool atLeast = i % 3 >= j % 3 && i / 3 % 3 >= j / 3 % 3 && i / 9 >= j / 9;
            ASSERT_EQ(p > q, greater) << i << " " << j;
            ASSERT_EQ(p >= q, atLeast) << i << " " << j;
            common += !(p >= q) && !(q >= p) ? 1 : 0;
        }
    }
    EXPECT_GT(common, 200);
    EXPECT_FALSE(ORIGIN > ORIGIN);
    EXPECT_TRUE(ORIGIN >= ORIGIN);
    EXPECT_TRUE(ORIGIN >= gsl_Point(0, 0, 0));
}

TEST(Point, ComponentsAreReadAndSet)
{
    const double xyz[] = {1, 2, 3};
    gsl_Point p(xyz);
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(p[i], xyz[i]);
    }
    EXPECT_THROW((void)p[3], nex_RangeException);
    EXPECT_THROW((void)p[-1], nex_RangeException);
    p.Set(4, 5, 6);
    EXPECT_TRUE(Same(p, gsl_Point(4, 5, 6)));
    EXPECT_TRUE(Same(gsl_Point(), ORIGIN));
}

TEST(Point, CopiesShareTheIdentity)
{
    gsl_Point p(1, 2, 3);
    const gsl_Point copy = p;
    const gsl_Point twin(1, 2, 3);
    EXPECT_EQ(copy.Uid(), p.Uid());
    EXPECT_NE(twin.Uid(), p.Uid());
    p.Set(7, 8, 9);
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(1, 1, 1));
    p.Transform(moved);
    EXPECT_EQ(copy.Uid(), p.Uid());
    EXPECT_NE((p + gsl_Vector(1, 0, 0)).Uid(), p.Uid());
}

TEST(Point, SumsWithVectors)
{
    const gsl_Point p(1, 2, 3);
    EXPECT_TRUE(Same(p + gsl_Vector(10, 20, 30), gsl_Point(11, 22, 33)));
    EXPECT_TRUE(Same(p - gsl_Vector(10, 20, 30), gsl_Point(-9, -18, -27)));
    EXPECT_TRUE(Same(gsl_Point(5, 7, 9) - p, gsl_Vector(4, 5, 6)));
    EXPECT_EQ(p.SquaredDistance(gsl_Point(2, 4, 5)), 9.0);
    EXPECT_EQ(p.GetDistance(gsl_Point(2, 4, 5)), 3.0);
}

// A plane and a line with a known frame: the coordinates in the frame are the answers.
TEST(Point, DistancesAndFeetInAKnownFrame)
{
    GeometryDraw draw(11);
    for (int i = 0; i < 2000; ++i)
    {
        const gsl_Vector n = draw.Unit();
        const gsl_Vector u = n.AnyOrthogonalUnit();
        const gsl_Vector v = n.CrossProduct(u);
        const gsl_Point base = draw.Point(100);
        const double a = draw.Number(-50, 50);
        const double b = draw.Number(-50, 50);
        const double h = draw.Number(-50, 50);
        const gsl_Point foot = base + u * a + v * b;
        const gsl_Point p = foot + n * h;
        const gsl_Plane plane(base, n * draw.Number(0.1, 9));
        ASSERT_NEAR(p.GetSignedDistance(plane), h, 1e-12);
        ASSERT_NEAR(p.GetDistance(plane), std::abs(h), 1e-12);
        ASSERT_TRUE(Near(p.ProjectOn(plane), foot, 1e-12));
        const gsl_StLine line(base, n * draw.Number(0.1, 9));
        ASSERT_NEAR(p.GetDistance(line), std::hypot(a, b), 1e-12);
        ASSERT_TRUE(Near(p.ProjectOn(line), base + n * h, 1e-12));
    }
}

TEST(Point, IsOnPlaneAndLineIncludesTheBound)
{
    const gsl_Plane plane(ORIGIN, gsl_Vector(0, 0, 1));
    const gsl_StLine line(ORIGIN, gsl_Vector(1, 0, 0));
    for (const double sign : {1.0, -1.0})
    {
        EXPECT_TRUE(gsl_Point(5, 7, sign * L).IsOn(plane));
        EXPECT_FALSE(gsl_Point(5, 7, sign * 1.0000001e-6).IsOn(plane));
        EXPECT_TRUE(gsl_Point(5, 0, sign * L).IsOn(line));
        EXPECT_FALSE(gsl_Point(5, 0, sign * 1.0000001e-6).IsOn(line));
    }
}

// Without normal or direction a plane or line is only its point.
TEST(Point, PlaneWithoutNormalAndLineWithoutDirection)
{
    const gsl_Plane plane(gsl_Point(1, 0, 0), gsl_Vector(0, 0, 0));
    const gsl_StLine line(gsl_Point(1, 0, 0), gsl_Vector(0, 0, 0));
    const gsl_Point p(4, 4, 0);
    EXPECT_EQ(p.GetDistance(plane), 5.0);
    EXPECT_EQ(p.GetSignedDistance(plane), 5.0);
    EXPECT_EQ(p.GetDistance(line), 5.0);
    EXPECT_TRUE(Same(p.ProjectOn(plane), gsl_Point(1, 0, 0)));
    EXPECT_TRUE(Same(p.ProjectOn(line), gsl_Point(1, 0, 0)));
    EXPECT_FALSE(gsl_Point(1, 0, 0).IsOn(plane));
    EXPECT_FALSE(gsl_Point(1, 0, 0).IsOn(line));
    gsl_Point out(9, 9, 9);
    EXPECT_FALSE(p.RayIntersect(gsl_Vector(-1, 0, 0), plane, out));
    EXPECT_TRUE(Same(out, gsl_Point(9, 9, 9)));
}

TEST(Point, MovesAlongADirectionOfAnyLength)
{
    const gsl_Point p(1, 2, 3);
    EXPECT_TRUE(Same(p.PointAtDistInDirection(5, gsl_Vector(0, 0, 0.125)), gsl_Point(1, 2, 8)));
    EXPECT_TRUE(Same(p.PointAtDistInDirection(-5, gsl_Vector(0, 64, 0)), gsl_Point(1, -3, 3)));
    EXPECT_TRUE(Same(p.PointAtDistInDirection(5, gsl_Vector(0, 0, 0.5e-6)), p));
}

TEST(Point, RayMeetsThePlaneAheadAlone)
{
    GeometryDraw draw(12);
    int hits = 0;
    constexpr int DRAWS = 5000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const gsl_Plane plane(draw.Point(10), draw.Unit());
        const gsl_Vector dir = draw.Unit() * draw.Number(0.1, 5);
        const double slope = dir.DotProduct(plane.Direction());
        if (std::abs(slope) < 1e-3)
        {
            continue;
        }
        const gsl_Point target = draw.Point(10).ProjectOn(plane);
        const double t = draw.Number(-3, 3);
        const gsl_Point p = target - dir * t;
        gsl_Point out(99, 99, 99);
        const bool hit = p.RayIntersect(dir, plane, out);
        ASSERT_EQ(hit, t > 0) << t;
        ASSERT_TRUE(hit ? Near(out, target, 1e-9) : Same(out, gsl_Point(99, 99, 99)));
        hits += hit ? 1 : 0;
    }
    EXPECT_GT(hits, DRAWS / 3);
    EXPECT_LT(hits, 2 * DRAWS / 3);
}

TEST(Point, RayFromThePlaneAndAlongIt)
{
    const gsl_Plane plane(ORIGIN, gsl_Vector(0, 0, 1));
    gsl_Point out(9, 9, 9);
    EXPECT_TRUE(gsl_Point(2, 3, 0).RayIntersect(gsl_Vector(0, 1, 1), plane, out));
    EXPECT_TRUE(Same(out, gsl_Point(2, 3, 0)));
    EXPECT_FALSE(gsl_Point(2, 3, 1).RayIntersect(gsl_Vector(1, 1, 0), plane, out));
    EXPECT_FALSE(gsl_Point(2, 3, 0).RayIntersect(gsl_Vector(1, 1, 0), plane, out));
    EXPECT_FALSE(gsl_Point(2, 3, 1).RayIntersect(gsl_Vector(0, 0, 0), plane, out));
    EXPECT_TRUE(Same(out, gsl_Point(2, 3, 0)));
}

TEST(Point, BarycentricCoordinatesOfTheFoot)
{
    GeometryDraw draw(13);
    int inside = 0;
    for (int i = 0; i < 3000; ++i)
    {
        const gsl_Point p1 = draw.Point(10);
        const gsl_Point p2 = draw.Point(10);
        const gsl_Point p3 = draw.Point(10);
        const gsl_Vector n(p1, p2, p3);
        if ((p2 - p1).CrossProduct(p3 - p1).Magnitude() < 1.0)
        {
            continue;
        }
        const double b = draw.Number(-1, 2);
        const double c = draw.Number(-1, 2);
        const gsl_Point p = p1 + (p2 - p1) * b + (p3 - p1) * c + n * draw.Number(-5, 5);
        double got[3] = {9, 9, 9};
        ASSERT_TRUE(p.Bary(p1, p2, p3, got[0], got[1], got[2]));
        ASSERT_NEAR(got[0], 1 - b - c, 1e-10);
        ASSERT_NEAR(got[1], b, 1e-10);
        ASSERT_NEAR(got[2], c, 1e-10);
        ASSERT_NEAR(got[0] + got[1] + got[2], 1.0, 1e-15);
        inside += got[0] >= 0 && got[1] >= 0 && got[2] >= 0 ? 1 : 0;
    }
    EXPECT_GT(inside, 100);
    double a = 7;
    double b = 8;
    double c = 9;
    EXPECT_FALSE(ORIGIN.Bary(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2), a, b, c));
    EXPECT_EQ(a, 7);
    EXPECT_EQ(b, 8);
    EXPECT_EQ(c, 9);
}

TEST(Point, PrintsXWithoutALabel)
{
    std::ostringstream text;
    gsl_Point(1.5, -2, 1e-7).Print(text, 0);
    gsl_Point(1.0 / 3, 0, 1e20).Print(text, 3);
    gsl_Point(0, 0, 0).Print(text, -1);
    EXPECT_EQ(text.str(), "1.5\ty:\t-2\tz:\t1e-07\n   0.333333\ty:\t0\tz:\t1e+20\n0\ty:\t0\tz:\t0\n");
}
}
