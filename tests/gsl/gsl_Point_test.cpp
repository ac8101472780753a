// Points: the exact comparison rules, distances and projections against constructions whose answer is known.
#include <testing/GeometryTesting.h>

#include <gsl_Dot.h>
#include <gsl_Plane.h>
#include <gsl_Predicates.h>
#include <gsl_StLine.h>

namespace
{
using namespace geometry;

// Equality includes the bound, IsOn does not. Only from the origin is the distance exactly 1e-6; elsewhere
// the sum base + 1e-6 rounds, and both rules fall on one side.
TEST(PointEquality, BoundIsInclusiveForEqualAndStrictForIsOn)
{
    const struct
    {
        double base, apart;
        bool equal, on;
    } rows[] = {{0, 1e-6, true, false},  {0, 1.1e-6, false, false}, {0, 0.9e-6, true, true},
                {100, 1e-6, true, true}, {0.1, 1e-6, false, false}, {-1, 1e-6, false, false}};
    for (const auto& row : rows)
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

TEST(Point, ComparesOnAllAxes)
{
    EXPECT_TRUE(gsl_Point(1, 1, 1) > ORIGIN && gsl_Point(0, 0, 1) >= ORIGIN);
    EXPECT_FALSE(gsl_Point(1, 0, 1) > ORIGIN || gsl_Point(1, -1, 1) >= ORIGIN) << "and nothing like an order";
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
        ASSERT_TRUE(Near(p.PointAtDistInDirection(-h, f.n * draw.Number(1e-5, 9)), foot, 1e-12));
        // A ray meets the plane ahead alone.
        gsl_Point out = UNTOUCHED;
        const gsl_Vector dir = (f.v + f.n * draw.Number(0.01, 1)) * (draw.Coin() ? -1 : 2);
        ASSERT_EQ(p.RayIntersect(dir, plane, out), h * dir.DotProduct(f.n) < 0);
        ASSERT_TRUE(h * dir.DotProduct(f.n) < 0 ? Near(out, p - dir * (h / dir.DotProduct(f.n)), 1e-9)
                                                : Same(out, UNTOUCHED));
    }
    EXPECT_TRUE(OnAxis(2, 1e-6).IsOn(gsl_StLine(ORIGIN, X)) && OnAxis(2, -1e-6).IsOn(gsl_Plane(ORIGIN, Z)));
    EXPECT_FALSE(OnAxis(2, 1.0000001e-6).IsOn(gsl_StLine(ORIGIN, X)));
    gsl_Point out;
    EXPECT_FALSE(ORIGIN.RayIntersect(X, gsl_Plane(ORIGIN, Z), out)) << "in the plane";
    EXPECT_TRUE(ORIGIN.RayIntersect(Z, gsl_Plane(ORIGIN, Z), out)) << "from the plane itself";
}

TEST(Point, BarycentricCoordinatesOfTheFoot)
{
    GeometryDraw draw(13);
    double got[3] = {9, 9, 9};
    EXPECT_FALSE(ORIGIN.Bary(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2), got[0], got[1], got[2]));
    EXPECT_TRUE(Same(gsl_Point(got), gsl_Point(9, 9, 9)));
    for (int i = 0; i < 1000; ++i)
    {
        const Frame f = draw.Frame();
        const gsl_Point p = draw.Point(10);
        const gsl_Vector side2 = f.u * draw.Number(1, 5);
        const gsl_Vector side3 = f.u * draw.Number(-5, 5) + f.n * draw.Number(1, 5);
        const double b = draw.Number(-1, 2);
        const double c = draw.Number(-1, 2);
        const gsl_Point above = p + side2 * b + side3 * c + side2.CrossProduct(side3);
        ASSERT_TRUE(above.Bary(p, p + side2, p + side3, got[0], got[1], got[2]));
        ASSERT_TRUE(Near(gsl_Point(got), gsl_Point(1 - b - c, b, c), 1e-10));
    }
}
}
