// Vectors: the cached length, the relations at their bounds, and directions built from others.
#include <testing/GeometryTesting.h>

#include <functional>
#include <gsl_Matrix.h>
#include <numbers>

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
                                                 [&] { v.RotateAndTransform(scaling); },
                                                 [&] { v.FromCoordinates(xyz); },
                                                 [&] { v = v.CrossProduct(draw.Unit()) - draw.Unit(); }};
        changes[draw.Whole(0, 6)]();
        ASSERT_TRUE(v.CachedMagnitude() < 0.0 ||
                    std::abs(v.CachedMagnitude() - Length(v)) <= 1e-12 * (1 + Length(v)));
        ASSERT_NEAR(draw.Coin() ? v.Magnitude() : Length(v), Length(v), 1e-12 * (1 + Length(v)));
        known += v.CachedMagnitude() >= 0.0;
    }
    EXPECT_TRUE(known > 2000 && known < 4900) << known;
}

TEST(Vector, NormalizeRefusesBelowTheToleranceAndLeavesTheVector)
{
    for (const auto& [length, unit] : {std::pair(0.0, false), {0.9e-6, false}, {1e-6, true}, {1e9, true}})
    {
        gsl_Vector v(0, -length, 0);
        EXPECT_EQ(v.Normalize(), unit) << length;
        EXPECT_TRUE(v.Y() == (unit ? -1.0 : -length) && v.Magnitude() == -v.Y());
    }
    // The bound of equality is exclusive, other than that of points.
    EXPECT_TRUE(ZERO == gsl_Vector(0, 0.9e-6, 0) && !(ZERO == gsl_Vector(1e-6, 0, 0)));
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
        ASSERT_NEAR(gsl_Vector::AngleBetween(a, b, f.n * -2), -angle, 1e-14);
    }
}

// SameDirection, IsParallel, IsOn, IsOrthogonal, as letters T and F.
TEST(VectorRelations, MatchTable)
{
    const struct
    {
        const char* what;
        gsl_Vector a, b;
        const char* relations;
        double tol = 1e-3;
    } rows[] = {{"opposite", X, X * -7, "FTTF"},
                {"beyond it", X, gsl_Vector(1, 0.0011, 0), "FFFF"},
                {"nearly orthogonal", X, gsl_Vector(0.9e-6, 1, 0), "FFFT"},
                {"zero and zero", ZERO, ZERO, "TTFF"},
                // Each component is within the tolerance, the sine is 1.41 times it.
                {"components near, sine not", Z, gsl_Vector(0.00099, 0.00099, 1), "TTFF"},
                // Unit components 1 and -1 are exactly 2 apart, the sine of X and Y is exactly 1.
                {"on the bound of components", Z, Z * -2, "TTTF", 2.0},
                {"on the bound of sines", X, Y, "TTFT", 1.0}};
    for (const auto& row : rows)
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
        ASSERT_TRUE(std::abs(best.DotProduct(f.n)) <= 1e-15 && Near(best, f.u, 1e-15 / lean));
    }
    EXPECT_TRUE(Same(X.BestAlignedOrthogonalUnit(X * 5), X.AnyOrthogonalUnit()));
}
}
