// Points: the exact comparison rules, distances and projections against constructions whose answer is known.
#include <testing/GeometryTesting.h>

#include <gsl_Dot.h>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_Predicates.h>
#include <gsl_StLine.h>
#include <nex_RangeException.h>
#include <sstream>

namespace
{
using namespace geometry;

// Equality includes the bound, IsOn does not. Only from the origin is the distance exactly 1e-6; elsewhere
// the sum base + 1e-6 rounds, and both rules fall on one side.
TEST(PointEquality, BoundIsInclusiveForEqualAndStrictForIsOn)
{
    struct Row
    {
        double base, apart;
        bool equal, on;
    };
    const Row rows[] = {{0, 1e-6, true, false},  {0, 1.1e-6, false, false}, {0, 0.9e-6, true, true},
                        {0, 0, true, true},      {1, 1e-6, true, true},     {10, 1e-6, true, true},
                        {100, 1e-6, true, true}, {0.1, 1e-6, false, false}, {0.5, 1e-6, false, false},
                        {3, 1e-6, false, false}, {-1, 1e-6, false, false}};
    for (const Row& row : rows)
        for (int axis = 0; axis < 3; ++axis)
        {
            SCOPED_TRACE(testing::Message() << row.base << " + " << row.apart << " on axis " << axis);
            const gsl_Point p = OnAxis(axis, row.base);
            const gsl_Point q = OnAxis(axis, row.base + row.apart);
            EXPECT_TRUE((p == q) == row.equal && (q == p) == row.equal && (p != q) == !row.equal);
            const gsl_Dot dots[] = {gsl_Dot(p), gsl_Dot(q)};
            EXPECT_TRUE(p.IsOn(q) == row.on && q.IsOn(p) == row.on &&
                        gsl_PointsAreCoincident(&dots[0], &dots[1]) == row.on);
        }
}

// Every pair of points of a small grid: dominance on all axes, and nothing like an order.
TEST(PointDominance, MatchesTheComponents)
{
    for (int i = 0; i < 27; ++i)
        for (int j = 0; j < 27; ++j)
        {
            const gsl_Point p(i % 3, i / 3 % 3, i / 9);
            const gsl_Point q(j % 3, j / 3 % 3, j / 9);
            ASSERT_EQ(p > q, i % 3 > j % 3 && i / 3 % 3 > j / 3 % 3 && i / 9 > j / 9) << i << " " << j;
            ASSERT_EQ(p >= q, i % 3 >= j % 3 && i / 3 % 3 >= j / 3 % 3 && i / 9 >= j / 9) << i << " " << j;
        }
    EXPECT_FALSE(ORIGIN > ORIGIN);
}

TEST(Point, ComponentsAndIdentity)
{
    const double xyz[] = {1, 2, 3};
    gsl_Point p(xyz);
    const gsl_Point copy = p;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(p[i], xyz[i]);
    EXPECT_THROW((void)p[3], nex_RangeException);
    EXPECT_THROW((void)p[-1], nex_RangeException);
    p.Set(7, 8, 9);
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(1, 1, 1));
    p.Transform(moved);
    EXPECT_TRUE(Same(p - gsl_Vector(1, 2, 3), gsl_Point(7, 7, 7)));
    EXPECT_EQ(copy.Uid(), p.Uid());
    EXPECT_NE((p + gsl_Vector(1, 0, 0)).Uid(), p.Uid());
    std::ostringstream text;
    gsl_Point(1.5, -2, 1e-7).Print(text, 0);
    gsl_Point(1.0 / 3, 0, 1e20).Print(text, 3);
    EXPECT_EQ(text.str(), "1.5\ty:\t-2\tz:\t1e-07\n   0.333333\ty:\t0\tz:\t1e+20\n") << "x has no label";
}

// A plane and a line with a known frame: the coordinates in the frame are the answers.
TEST(Point, DistancesAndFeetInAKnownFrame)
{
    GeometryDraw draw(11);
    for (int i = 0; i < 1000; ++i)
    {
        const Frame f = draw.Frame();
        const gsl_Point base = draw.Point(100);
        const double a = draw.Number(-50, 50);
        const double b = draw.Number(-50, 50);
        const double h = draw.Number(-50, 50);
        const gsl_Point foot = base + f.u * a + f.v * b;
        const gsl_Point p = foot + f.n * h;
        const gsl_Plane plane(base, f.n * draw.Number(0.1, 9));
        ASSERT_NEAR(p.GetSignedDistance(plane), h, 1e-12);
        ASSERT_NEAR(p.GetDistance(plane), std::abs(h), 1e-12);
        ASSERT_TRUE(Near(p.ProjectOn(plane), foot, 1e-12));
        const gsl_StLine line(base, f.n * draw.Number(0.1, 9));
        ASSERT_NEAR(p.GetDistance(line), std::hypot(a, b), 1e-12);
        ASSERT_TRUE(Near(p.ProjectOn(line), base + f.n * h, 1e-12));
        ASSERT_NEAR(p.GetDistance(base), std::hypot(a, b, h), 1e-12);
        ASSERT_NEAR(p.SquaredDistance(base), a * a + b * b + h * h, 1e-9);
        ASSERT_TRUE(Near(p.PointAtDistInDirection(-h, f.n * draw.Number(1e-5, 9)), foot, 1e-12));
    }
    EXPECT_TRUE(Same(ORIGIN.PointAtDistInDirection(5, gsl_Vector(0, 0, 0.5e-6)), ORIGIN));
    EXPECT_TRUE(OnAxis(2, 1e-6).IsOn(gsl_StLine(ORIGIN, X)) && OnAxis(2, -1e-6).IsOn(gsl_Plane(ORIGIN, Z)));
    EXPECT_FALSE(OnAxis(2, 1.0000001e-6).IsOn(gsl_StLine(ORIGIN, X)));
}

TEST(Point, RayMeetsThePlaneAheadAlone)
{
    GeometryDraw draw(12);
    for (int i = 0; i < 2000; ++i)
    {
        const Frame f = draw.Frame();
        const gsl_Point target = draw.Point(10);
        const gsl_Plane plane(target + f.u * draw.Number(-9, 9), f.n);
        const gsl_Vector dir = (f.v + f.n * draw.Number(0.01, 1)) * draw.Number(-3, 3);
        const double t = draw.Number(-3, 3);
        gsl_Point out = UNTOUCHED;
        ASSERT_EQ((target - dir * t).RayIntersect(dir, plane, out), t > 0) << t;
        ASSERT_TRUE(t > 0 ? Near(out, target, 1e-9) : Same(out, UNTOUCHED));
    }
    const gsl_Plane plane(ORIGIN, Z);
    gsl_Point out = UNTOUCHED;
    for (const auto& [z, dir] :
         {std::pair{1, gsl_Vector(1, 1, 0)}, {0, gsl_Vector(1, 1, 0)}, {1, gsl_Vector()}})
        EXPECT_FALSE(gsl_Point(2, 3, z).RayIntersect(dir, plane, out));
    EXPECT_TRUE(Same(out, UNTOUCHED));
    EXPECT_TRUE(gsl_Point(2, 3, 0).RayIntersect(gsl_Vector(0, 1, 1), plane, out)) << "from the plane itself";
    EXPECT_TRUE(Same(out, gsl_Point(2, 3, 0)));
}

TEST(Point, BarycentricCoordinatesOfTheFoot)
{
    GeometryDraw draw(13);
    for (int i = 0; i < 1000; ++i)
    {
        const Frame f = draw.Frame();
        const gsl_Point p1 = draw.Point(10);
        const gsl_Vector side2 = f.u * draw.Number(1, 5) + f.v * draw.Number(-5, 5);
        const gsl_Vector side3 = side2 * draw.Number(-1, 1) + f.n * draw.Number(1, 5);
        const gsl_Vector across = side2.CrossProduct(side3) * 0.5;
        const double b = draw.Number(-1, 2);
        const double c = draw.Number(-1, 2);
        double got[3] = {9, 9, 9};
        ASSERT_TRUE(
            (p1 + side2 * b + side3 * c + across).Bary(p1, p1 + side2, p1 + side3, got[0], got[1], got[2]));
        ASSERT_NEAR(got[0], 1 - b - c, 1e-10);
        ASSERT_NEAR(got[1], b, 1e-10);
        ASSERT_NEAR(got[2], c, 1e-10);
    }
    double none[3] = {7, 8, 9};
    EXPECT_FALSE(ORIGIN.Bary(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2), none[0], none[1], none[2]));
    EXPECT_TRUE(none[0] == 7 && none[1] == 8 && none[2] == 9);
}
}
