// Vectors: the cached length, the relations at their bounds, and directions built from others.
#include <testing/GeometryTesting.h>

#include <functional>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <nex_RangeException.h>
#include <numbers>
#include <sstream>

namespace
{
using namespace geometry;
constexpr double PI = std::numbers::pi;
const gsl_Vector ZERO;

double Length(const gsl_Vector& v)
{
    return std::hypot(v.X(), v.Y(), v.Z());
}

TEST(VectorCache, NeverLiesUnderRandomChanges)
{
    GeometryDraw draw(20);
    gsl_Vector v(1, 2, 3);
    int known = 0;
    gsl_Matrix scaling;
    scaling.SetRotationVectors(X * 1.5, Z, Y * -0.5);
    for (int i = 0; i < 5000; ++i)
    {
        const double xyz[] = {draw.Number(-5, 5), draw.Number(-5, 5), draw.Number(-5, 5)};
        const std::function<void()> changes[] = {[&] { v.Set(draw.Whole(0, 2), xyz[0]); },
                                                 [&] { v.Scale(0.3 * xyz[0]); },
                                                 [&] { v.Negate(); },
                                                 [&] { (void)v.Normalize(); },
                                                 [&] { v = v + draw.Unit(); },
                                                 [&] { v.RotateAndTransform(scaling); },
                                                 [&] { v.FromCoordinates(xyz); },
                                                 [&] { v = v.CrossProduct(draw.Unit()) - draw.Unit(); }};
        changes[draw.Whole(0, 7)]();
        ASSERT_TRUE(v.CachedMagnitude() < 0.0 ||
                    std::abs(v.CachedMagnitude() - Length(v)) <= 1e-12 * (1 + Length(v)));
        ASSERT_NEAR(draw.Coin() ? v.Magnitude() : Length(v), Length(v), 1e-12 * (1 + Length(v)));
        known += v.CachedMagnitude() >= 0.0;
    }
    EXPECT_TRUE(known > 2000 && known < 4900) << known;
}

TEST(Vector, ComponentsAreReadAndSet)
{
    gsl_Vector v(gsl_Point(1, 2, 3), gsl_Point(2, 4, 6));
    double xyz[3];
    v.ToCoordinates(xyz);
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_TRUE(v[i] == i + 1.0 && xyz[i] == i + 1.0);
        v.Set(i, 10 + i);
    }
    EXPECT_TRUE(Same(v, gsl_Vector(gsl_Point(10, 11, 12))));
    EXPECT_THROW((void)v[3], nex_RangeException);
    EXPECT_THROW(v.Set(-1, 0), nex_RangeException);
    std::ostringstream text;
    gsl_Vector(3, -4, 0).Print(text, 2);
    EXPECT_EQ(text.str(), "  magnitude:\t5\n  3\ty:\t-4\tz:\t0\n");
}

TEST(VectorNormalize, RefusesBelowTheToleranceAndLeavesTheVector)
{
    struct Row
    {
        double length, tol; // a negative tolerance: that of the house
        bool unit;
    };
    const Row rows[] = {{0.0, -1, false},    {0.9e-6, -1, false}, {1e-6, -1, true}, {1e9, -1, true},
                        {1e-9, 1e-8, false}, {1e-9, 1e-9, true},  {0.0, 0.0, false}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.length);
        gsl_Vector v(0, -row.length, 0);
        gsl_Vector out(7, 8, 9);
        if (row.tol < 0)
        {
            EXPECT_EQ(v.NormalizedCopy(out), row.unit);
            EXPECT_TRUE(Same(out, row.unit ? Y * -1 : gsl_Vector(7, 8, 9)));
        }
        ASSERT_EQ(row.tol < 0 ? v.Normalize() : v.Normalize(row.tol), row.unit);
        EXPECT_EQ(v.Y(), row.unit ? -1.0 : -row.length);
        EXPECT_EQ(v.Magnitude(), row.unit ? 1.0 : row.length);
    }
}

TEST(VectorEquality, IsStrict)
{
    EXPECT_FALSE(ZERO == gsl_Vector(1e-6, 0, 0));
    EXPECT_TRUE(ZERO == gsl_Vector(0, 0.9e-6, 0));
    const gsl_Vector unknown(std::nan(""), 0, 0);
    const gsl_Vector& same = unknown;
    EXPECT_TRUE(unknown == same);
    EXPECT_FALSE(unknown == gsl_Vector(unknown));
}

// In a right-handed frame with known factors the products are the determinants of the factors.
TEST(Vector, Products)
{
    GeometryDraw draw(21);
    for (int i = 0; i < 500; ++i)
    {
        const Frame f = draw.Frame();
        const double a = draw.Number(-9, 9);
        const double b = draw.Number(-9, 9);
        const double c = draw.Number(-9, 9);
        const gsl_Vector p = f.n * a + f.u * b;
        const gsl_Vector q = f.n * b + f.u * c + f.v;
        ASSERT_NEAR(p.DotProduct(q), a * b + b * c, 1e-12);
        ASSERT_TRUE(Near(p.CrossProduct(q), f.n * b - f.u * a + f.v * (a * c - b * b), 1e-12));
        ASSERT_NEAR(f.v.TripleProduct(p, q), a * c - b * b, 1e-12);
        const gsl_Plane across(draw.Point(100), f.n * 4.0);
        ASSERT_TRUE(Near(q.ProjectOn(across), f.u * c + f.v, 1e-13));
    }
}

// A vector and the same one turned by a known angle about a known axis.
TEST(VectorAngle, OfATurnedVectorIsTheTurn)
{
    GeometryDraw draw(22);
    for (int i = 0; i < 2000; ++i)
    {
        const Frame f = draw.Frame();
        const double angle = i % 3 == 0 ? draw.Number(0, 1e-7) : draw.Number(0, PI);
        const gsl_Vector a = f.u * draw.Number(0.1, 10);
        const gsl_Vector b = (f.u * std::cos(angle) + f.v * std::sin(angle)) * draw.Number(0.1, 10);
        ASSERT_NEAR(a.AngleWith(b, false), angle, 1e-15 + 1e-14 * angle);
        gsl_Vector axis;
        ASSERT_NEAR(a.AngleWith(b, true, axis), angle * 180 / PI, 1e-12);
        ASSERT_NEAR(axis.DotProduct(a), 0, 1e-6);
        ASSERT_NEAR(axis.DotProduct(f.n), 1, angle > 1e-3 && angle < PI - 1e-3 ? 1e-11 : 2.0);
        ASSERT_NEAR(gsl_Vector::AngleBetween(a, b, f.n), angle, 1e-14);
        ASSERT_NEAR(gsl_Vector::AngleBetween(b, a, f.n), -angle, 1e-14);
        ASSERT_NEAR(gsl_Vector::AngleBetween(a, b, f.n * -2), -angle, 1e-14);
    }
    for (const auto& [v, angle] : {std::pair{X * 3, 0.0}, {X * -3, PI}, {ZERO, 0.0}})
    {
        gsl_Vector axis;
        EXPECT_EQ(X.AngleWith(v, false, axis), angle);
        EXPECT_TRUE(Same(axis, X.AnyOrthogonalUnit())) << "parallel: some axis across";
    }
}

// SameDirection, IsParallel, IsOn, IsOrthogonal, as letters T and F.
TEST(VectorRelations, MatchTable)
{
    struct Row
    {
        const char* what;
        gsl_Vector a, b;
        const char* relations;
        double tol = 1e-3;
    };
    const Row rows[] = {{"opposite", X, X * -7, "FTTF"},
                        {"orthogonal", X, Y * 7, "FFFT"},
                        {"within the tolerance", X, gsl_Vector(1, 0.0009, 0), "TTTF"},
                        {"beyond it", X, gsl_Vector(1, 0.0011, 0), "FFFF"},
                        {"nearly orthogonal", X, gsl_Vector(0.9e-6, 1, 0), "FFFT"},
                        {"not quite orthogonal", X, gsl_Vector(1.1e-6, 1, 0), "FFFF"},
                        {"zero and zero", ZERO, ZERO, "TTFF"},
                        {"tiny and orthogonal", X * 1e-20, Y, "FFFT"},
                        // Each component is within the tolerance, the sine is 1.41 times it.
                        {"components near, sine not", Z, gsl_Vector(0.00099, 0.00099, 1), "TTFF"},
                        // Unit components 1 and -1 are exactly 2 apart, the sine of X and Y is exactly 1.
                        {"on the bound of components", Z, Z * -2, "TTTF", 2.0},
                        {"on the bound of sines", X, Y, "TTFT", 1.0}};
    for (const Row& row : rows)
        for (const auto& [a, b] : {std::pair{row.a, row.b}, {row.b, row.a}})
        {
            std::string text;
            for (const bool answer : {a.SameDirection(b, row.tol), a.IsParallel(b, row.tol),
                                      a.IsOn(b, row.tol), a.IsOrthogonal(b)})
                text += answer ? 'T' : 'F';
            EXPECT_EQ(text, row.relations) << row.what;
        }
}

// The first candidate vanishes along (1,1,1); a tiny vector takes the fall-back too and gets a wrong answer,
// on purpose: callers normalise before.
TEST(VectorOrthogonal, AnyUnitAndItsFallBack)
{
    EXPECT_TRUE(
        Near(gsl_Vector(9, 2, 4).AnyOrthogonalUnit(), gsl_Vector(-2, -5, 7) * (1 / std::sqrt(78.0)), 1e-15));
    for (const gsl_Vector& v : {gsl_Vector(5, 5, 5), gsl_Vector(-1, -1, -1), ZERO, gsl_Vector(1e-7, 0, 0)})
        EXPECT_TRUE(Near(v.AnyOrthogonalUnit(), gsl_Vector(1, -1, 0) * std::sqrt(0.5), 1e-15));
}

TEST(VectorOrthogonal, BestAlignedIsTheHintsPartAcross)
{
    GeometryDraw draw(26);
    for (int i = 0; i < 2000; ++i)
    {
        const Frame f = draw.Frame();
        const double lean = std::pow(10.0, draw.Number(-5, 0));
        const gsl_Vector hint = (f.n * draw.Number(-1, 1) + f.u * lean) * std::pow(10.0, draw.Number(-2, 6));
        const gsl_Vector best = (f.n * std::pow(10.0, draw.Number(-9, 9))).BestAlignedOrthogonalUnit(hint);
        ASSERT_NEAR(Length(best), 1.0, 1e-15);
        ASSERT_NEAR(best.DotProduct(f.n), 0.0, 1e-15);
        ASSERT_TRUE(Near(best, f.u, 1e-15 / lean));
    }
    for (const gsl_Vector& hint : {ZERO, X * 5, X * -1e12, gsl_Vector(1, 1e-8, 0)})
        EXPECT_TRUE(Same(X.BestAlignedOrthogonalUnit(hint), X.AnyOrthogonalUnit()));
    EXPECT_TRUE(Same(ZERO.BestAlignedOrthogonalUnit(gsl_Vector(0, 3, 0)), Y));
}
}
