// Vectors: the cached length, the relations with their laws, and directions built from others.
#include <testing/GeometryTesting.h>

#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <nex_RangeException.h>
#include <numbers>
#include <sstream>

namespace
{
constexpr double PI = std::numbers::pi;
const gsl_Vector X(1, 0, 0);
const gsl_Vector Y(0, 1, 0);
const gsl_Vector Z(0, 0, 1);
const gsl_Vector ZERO;

double Length(const gsl_Vector& v)
{
    return std::sqrt(v.X() * v.X() + v.Y() * v.Y() + v.Z() * v.Z());
}

// What each change leaves in the cache: a known value, or unknown. Whatever it is, Magnitude() must be right.
TEST(VectorCache, IsKnownOrInvalidAfterEachChange)
{
    EXPECT_EQ(ZERO.CachedMagnitude(), 0.0);
    gsl_Vector v(3, 4, 0);
    EXPECT_LT(v.CachedMagnitude(), 0.0);
    EXPECT_EQ(v.Magnitude(), 5.0);
    EXPECT_EQ(v.CachedMagnitude(), 5.0);
    v.Negate();
    EXPECT_EQ(v.CachedMagnitude(), 5.0);
    v.Scale(-2);
    EXPECT_EQ(v.CachedMagnitude(), 10.0);
    EXPECT_TRUE(Same(v, gsl_Vector(6, 8, 0)));
    EXPECT_EQ(v.ScaledCopy(0.5).CachedMagnitude(), 5.0);
    v.Set(2, 1);
    EXPECT_LT(v.CachedMagnitude(), 0.0);
    v.Scale(3);
    EXPECT_LT(v.CachedMagnitude(), 0.0);
    EXPECT_LT((v + X).CachedMagnitude(), 0.0);
    EXPECT_LT((v - X).CachedMagnitude(), 0.0);
    const double xyz[] = {1, 2, 2};
    v.FromCoordinates(xyz);
    EXPECT_LT(v.CachedMagnitude(), 0.0);
    ASSERT_TRUE(v.Normalize());
    EXPECT_EQ(v.CachedMagnitude(), 1.0);
    gsl_Matrix turn;
    ASSERT_TRUE(turn.AxisRotation(Z, 1.0));
    v.RotateAndTransform(turn);
    EXPECT_LT(v.CachedMagnitude(), 0.0);
}

TEST(VectorCache, NeverLiesUnderRandomChanges)
{
    GeometryDraw draw(20);
    gsl_Vector v(1, 2, 3);
    gsl_Matrix turn;
    ASSERT_TRUE(turn.AxisRotation(gsl_Vector(1, 2, -1), 0.3));
    for (int i = 0; i < 5000; ++i)
    {
        switch (draw.Whole(0, 8))
        {
        case 0:
            v.Set(draw.Whole(0, 2), draw.Number(-5, 5));
            break;
        case 1:
            v.Scale(draw.Number(-1.5, 1.5));
            break;
        case 2:
            v.Negate();
            break;
        case 3:
            (void)v.Normalize();
            break;
        case 4:
            v = v + draw.Unit();
            break;
        case 5:
            v.RotateAndTransform(turn);
            break;
        case 6:
            v = v * draw.Number(0.5, 2);
            break;
        case 7:
            v.ComputeMagnitude();
            break;
        default:
            v = v.CrossProduct(draw.Unit()) - draw.Unit();
        }
        if (draw.Coin())
        {
            ASSERT_NEAR(v.Magnitude(), Length(v), 1e-12 * (1 + Length(v)));
        }
    }
}

TEST(Vector, ComponentsAreReadAndSet)
{
    gsl_Vector v(1, 2, 3);
    double xyz[3];
    v.ToCoordinates(xyz);
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(v[i], xyz[i]);
        v.Set(i, 10 + i);
    }
    EXPECT_TRUE(Same(v, gsl_Vector(10, 11, 12)));
    EXPECT_THROW((void)v[3], nex_RangeException);
    EXPECT_THROW(v.Set(-1, 0), nex_RangeException);
    EXPECT_TRUE(Same(v, gsl_Vector(10, 11, 12)));
    EXPECT_TRUE(Same(gsl_Vector(gsl_Point(1, 2, 3)), gsl_Vector(1, 2, 3)));
    EXPECT_TRUE(Same(gsl_Vector(gsl_Point(1, 2, 3), gsl_Point(5, 5, 5)), gsl_Vector(4, 3, 2)));
    EXPECT_TRUE(Same(2.0 * gsl_Vector(1, 2, 3), gsl_Vector(2, 4, 6)));
}

TEST(VectorNormalize, RefusesBelowTheToleranceAndLeavesTheVector)
{
    struct Row
    {
        const char* what;
        double length;
        bool unit;
    };
    const Row rows[] = {{"zero", 0.0, false},
                        {"below", 0.9e-6, false},
                        {"on the bound: not below", 1e-6, true},
                        {"above", 1.1e-6, true},
                        {"long", 1e9, true}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        for (int axis = 0; axis < 3; ++axis)
        {
            gsl_Vector v;
            v.Set(axis, -row.length);
            const gsl_Vector before = v;
            gsl_Vector out(7, 8, 9);
            EXPECT_EQ(before.NormalizedCopy(out), row.unit);
            EXPECT_TRUE(row.unit || Same(out, gsl_Vector(7, 8, 9)));
            ASSERT_EQ(v.Normalize(), row.unit);
            EXPECT_EQ(v[axis], row.unit ? -1.0 : -row.length);
            EXPECT_EQ(v.Magnitude(), row.unit ? 1.0 : row.length);
        }
    }
}

TEST(VectorNormalize, TakesAnotherTolerance)
{
    gsl_Vector v(0, 1e-9, 0);
    EXPECT_FALSE(v.Normalize(1e-8));
    EXPECT_TRUE(Same(v, gsl_Vector(0, 1e-9, 0)));
    EXPECT_TRUE(v.Normalize(1e-9));
    EXPECT_TRUE(Same(v, Y));
    gsl_Vector nothing;
    EXPECT_FALSE(nothing.Normalize(0.0));
    EXPECT_TRUE(Same(nothing, ZERO));
}

TEST(VectorEquality, IsStrict)
{
    EXPECT_FALSE(ZERO == gsl_Vector(1e-6, 0, 0));
    EXPECT_TRUE(ZERO == gsl_Vector(0, 0.9e-6, 0));
    EXPECT_TRUE(ZERO != gsl_Vector(0, 0, 1.1e-6));
    const gsl_Vector unknown(std::nan(""), 0, 0);
    const gsl_Vector& same = unknown;
    const gsl_Vector copy = unknown;
    EXPECT_TRUE(unknown == same);
    EXPECT_FALSE(unknown == copy);
}

TEST(Vector, Products)
{
    GeometryDraw draw(21);
    for (int i = 0; i < 2000; ++i)
    {
        const gsl_Vector a = draw.Unit() * draw.Number(0.1, 10);
        const gsl_Vector b = draw.Unit() * draw.Number(0.1, 10);
        const gsl_Vector c = draw.Unit() * draw.Number(0.1, 10);
        const gsl_Vector n = a.CrossProduct(b);
        ASSERT_NEAR(n.DotProduct(a), 0, 1e-11);
        ASSERT_NEAR(n.DotProduct(b), 0, 1e-11);
        // Lagrange: |a x b|^2 + (a.b)^2 = |a|^2 |b|^2.
        ASSERT_NEAR(n.DotProduct(n) + std::pow(a.DotProduct(b), 2), a.DotProduct(a) * b.DotProduct(b), 1e-8);
        ASSERT_NEAR(a.TripleProduct(b, c), b.TripleProduct(c, a), 1e-10);
        ASSERT_NEAR(a.TripleProduct(b, c), -a.TripleProduct(c, b), 1e-10);
    }
    EXPECT_TRUE(Same(X.CrossProduct(Y), Z));
    EXPECT_EQ(X.TripleProduct(Y, Z), 1.0);
}

// A vector and the same one turned by a known angle about a known axis.
TEST(VectorAngle, OfATurnedVectorIsTheTurn)
{
    GeometryDraw draw(22);
    for (int i = 0; i < 3000; ++i)
    {
        const gsl_Vector axis = draw.Unit();
        const gsl_Vector start = axis.AnyOrthogonalUnit();
        const double angle = i % 3 == 0 ? draw.Number(0, 1e-7) : draw.Number(0, PI);
        const gsl_Vector a = start * draw.Number(0.1, 10);
        const gsl_Vector b =
            (start * std::cos(angle) + axis.CrossProduct(start) * std::sin(angle)) * draw.Number(0.1, 10);
        ASSERT_NEAR(a.AngleWith(b, false), angle, 1e-15 + 1e-14 * angle);
        ASSERT_NEAR(a.AngleWith(b, true), angle * 180 / PI, 1e-12);
        gsl_Vector found;
        ASSERT_NEAR(a.AngleWith(b, true, found), angle * 180 / PI, 1e-12);
        ASSERT_NEAR(Length(found), 1.0, 1e-14);
        if (angle > 1e-3 && angle < PI - 1e-3)
        {
            ASSERT_TRUE(Near(found, axis, 1e-11)) << angle;
        }
        else
        {
            ASSERT_NEAR(found.DotProduct(a), 0, 1e-6) << angle;
        }
        ASSERT_NEAR(gsl_Vector::AngleBetween(a, b, axis), angle, 1e-14);
        ASSERT_NEAR(gsl_Vector::AngleBetween(b, a, axis), -angle, 1e-14);
        ASSERT_NEAR(gsl_Vector::AngleBetween(a, b, axis * -2), -angle, 1e-14);
    }
}

TEST(VectorAngle, ParallelAndZeroVectors)
{
    gsl_Vector axis;
    EXPECT_EQ(X.AngleWith(X * 3, false, axis), 0.0);
    EXPECT_TRUE(Same(axis, X.AnyOrthogonalUnit()));
    EXPECT_EQ(X.AngleWith(X * -3, false, axis), PI);
    EXPECT_TRUE(Same(axis, X.AnyOrthogonalUnit()));
    EXPECT_EQ(X.AngleWith(ZERO, true, axis), 0.0);
    EXPECT_TRUE(Same(axis, X.AnyOrthogonalUnit()));
    EXPECT_EQ(ZERO.AngleWith(ZERO, true), 0.0);
    EXPECT_EQ(gsl_Vector::AngleBetween(X, Y, Z), PI / 2);
    EXPECT_EQ(gsl_Vector::AngleBetween(Y, X, Z), -PI / 2);
    EXPECT_EQ(gsl_Vector::AngleBetween(X, X * -1, Z), PI);
}

// All relations of a pair at once: SameDirection, IsParallel, IsOn, IsOrthogonal, as letters T and F.
std::string Relations(const gsl_Vector& a, const gsl_Vector& b)
{
    constexpr double TOL = 1e-3;
    const bool answers[] = {a.SameDirection(b, TOL), a.IsParallel(b, TOL), a.IsOn(b, TOL), a.IsOrthogonal(b)};
    std::string text;
    for (const bool answer : answers)
    {
        text += answer ? 'T' : 'F';
    }
    return text;
}

TEST(VectorRelations, MatchTable)
{
    struct Row
    {
        const char* what;
        gsl_Vector a, b;
        const char* relations;
    };
    const Row rows[] = {{"itself", X, X, "TTTF"},
                        {"longer", X, X * 7, "TTTF"},
                        {"opposite", X, X * -7, "FTTF"},
                        {"orthogonal", X, Y * 7, "FFFT"},
                        {"oblique", X, gsl_Vector(1, 1, 0), "FFFF"},
                        {"within the tolerance", X, gsl_Vector(1, 0.0009, 0), "TTTF"},
                        {"beyond it", X, gsl_Vector(1, 0.0011, 0), "FFFF"},
                        {"opposite, within", X, gsl_Vector(-1, 0.0009, 0), "FTTF"},
                        {"nearly orthogonal", X, gsl_Vector(0.9e-6, 1, 0), "FFFT"},
                        {"not quite orthogonal", X, gsl_Vector(1.1e-6, 1, 0), "FFFF"},
                        {"zero and zero", ZERO, ZERO, "TTFF"},
                        {"zero and another", ZERO, X, "FFFF"},
                        {"tiny and parallel", X * 1e-20, X, "TTTF"},
                        {"tiny and orthogonal", X * 1e-20, Y, "FFFT"},
                        // Each component is within the tolerance, the sine is 1.41 times it.
                        {"components near, sine not", Z, gsl_Vector(0.00099, 0.00099, 1), "TTFF"}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(Relations(row.a, row.b), row.relations);
        EXPECT_EQ(Relations(row.b, row.a), row.relations);
    }
}

TEST(VectorRelations, BoundsAreInclusiveForComponentsAndStrictForSines)
{
    // Unit components 1 and -1 are exactly 2 apart, the sine of X and Y is exactly 1.
    EXPECT_TRUE(gsl_Vector(0, 0, 2).SameDirection(gsl_Vector(0, 0, -2), 2.0));
    EXPECT_FALSE(gsl_Vector(0, 0, 2).SameDirection(gsl_Vector(0, 0, -2), 1.9999));
    EXPECT_FALSE(X.IsOn(Y, 1.0));
    EXPECT_TRUE(X.IsOn(Y, 1.0000001));
}

TEST(VectorRelations, LawsHoldAroundTheBound)
{
    GeometryDraw draw(23);
    int on = 0;
    int same = 0;
    int orthogonal = 0;
    constexpr int DRAWS = 20000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const double tol = std::pow(10.0, draw.Number(-8, -1));
        const gsl_Vector a = draw.Unit() * draw.Number(0.1, 10);
        gsl_Vector across = a.BestAlignedOrthogonalUnit(draw.Unit());
        const double sine = draw.Number(0, 2) * tol;
        gsl_Vector unit;
        ASSERT_TRUE(a.NormalizedCopy(unit));
        const double sign = draw.Coin() ? 1 : -1;
        const gsl_Vector b =
            (unit * (sign * std::sqrt(1 - sine * sine)) + across * sine) * draw.Number(0.1, 10);
        const gsl_Vector opposite = b * -1;
        ASSERT_EQ(a.IsOn(b, tol), b.IsOn(a, tol));
        ASSERT_EQ(a.IsOn(b, tol), a.IsOn(opposite, tol));
        ASSERT_EQ(a.IsParallel(b, tol), a.IsParallel(opposite, tol));
        ASSERT_EQ(a.IsParallel(b, tol), b.IsParallel(a, tol));
        ASSERT_EQ(a.SameDirection(b, tol), b.SameDirection(a, tol));
        ASSERT_TRUE(!a.SameDirection(b, tol) || a.IsParallel(b, tol));
        ASSERT_TRUE(!a.SameDirection(b, tol) || sign > 0);
        if (std::abs(sine - tol) > 1e-6 * tol + 1e-15)
        {
            ASSERT_EQ(a.IsOn(b, tol), sine < tol) << sine << " " << tol;
        }
        on += a.IsOn(b, tol) ? 1 : 0;
        same += a.SameDirection(b, tol) ? 1 : 0;
        const double lean = draw.Number(-2e-6, 2e-6);
        const gsl_Vector upright = (across + unit * lean) * 3.0;
        ASSERT_EQ(a.IsOrthogonal(upright), upright.IsOrthogonal(a));
        if (std::abs(std::abs(lean) - 1e-6) > 1e-12)
        {
            ASSERT_EQ(a.IsOrthogonal(upright), std::abs(lean) < 1e-6) << lean;
        }
        orthogonal += a.IsOrthogonal(upright) ? 1 : 0;
    }
    for (const int count : {on, orthogonal})
    {
        EXPECT_GT(count, DRAWS / 3);
        EXPECT_LT(count, 2 * DRAWS / 3);
    }
    EXPECT_GT(same, DRAWS / 8);
    EXPECT_LT(same, DRAWS / 2);
}

TEST(VectorNormalOfThreePoints, IsUnitOrZero)
{
    const gsl_Vector normal(gsl_Point(0, 0, 0), gsl_Point(2, 0, 0), gsl_Point(2, 3, 0));
    EXPECT_TRUE(Same(normal, Z));
    EXPECT_EQ(normal.CachedMagnitude(), 1.0);
    const gsl_Vector none(gsl_Point(0, 0, 0), gsl_Point(1, 1, 1), gsl_Point(3, 3, 3));
    EXPECT_TRUE(Same(none, ZERO));
    EXPECT_EQ(none.CachedMagnitude(), 0.0);
    const gsl_Vector samePoints(gsl_Point(1, 2, 3), gsl_Point(1, 2, 3), gsl_Point(4, 5, 6));
    EXPECT_TRUE(Same(samePoints, ZERO));
}

// The threshold is relative: only the sine of the edges counts, not the size of the triangle.
TEST(VectorNormalOfThreePoints, ThresholdIsTheSineOfTheEdges)
{
    GeometryDraw draw(24);
    int found = 0;
    constexpr int DRAWS = 5000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const double size = std::pow(10.0, draw.Number(-20, 20));
        const double sine = draw.Number(0, 2e-10);
        const gsl_Vector normal(gsl_Point(0, 0, 0), gsl_Point(size, 0, 0),
                                gsl_Point(2 * size, sine * size, 0));
        if (std::abs(sine - 1e-10) < 1e-20)
        {
            continue;
        }
        ASSERT_EQ(normal.Magnitude(), sine > 1e-10 ? 1.0 : 0.0) << size << " " << sine;
        found += normal.Magnitude() > 0 ? 1 : 0;
    }
    EXPECT_GT(found, DRAWS / 3);
    EXPECT_LT(found, 2 * DRAWS / 3);
}

TEST(VectorOrthogonal, AnyUnitOfARealDirection)
{
    GeometryDraw draw(25);
    for (int i = 0; i < 3000; ++i)
    {
        const gsl_Vector v = draw.Unit() * std::pow(10.0, draw.Number(-3, 6));
        const gsl_Vector w = v.AnyOrthogonalUnit();
        ASSERT_NEAR(Length(w), 1.0, 1e-15);
        ASSERT_EQ(w.CachedMagnitude(), 1.0);
        ASSERT_NEAR(w.DotProduct(v), 0.0, 1e-9 * Length(v));
    }
    EXPECT_TRUE(Near(X.AnyOrthogonalUnit(), gsl_Vector(0, -1, 1) * std::sqrt(0.5), 1e-15));
}

// The first candidate vanishes along (1,1,1); a tiny vector takes the fall-back too and gets a wrong answer,
// on purpose: callers normalise before.
TEST(VectorOrthogonal, FallBackOfAnyUnit)
{
    const gsl_Vector fallBack = gsl_Vector(1, -1, 0) * std::sqrt(0.5);
    EXPECT_TRUE(Near(gsl_Vector(5, 5, 5).AnyOrthogonalUnit(), fallBack, 1e-15));
    EXPECT_TRUE(Near(gsl_Vector(-1, -1, -1).AnyOrthogonalUnit(), fallBack, 1e-15));
    EXPECT_TRUE(Near(ZERO.AnyOrthogonalUnit(), fallBack, 1e-15));
    const gsl_Vector tiny(1e-7, 0, 0);
    EXPECT_TRUE(Near(tiny.AnyOrthogonalUnit(), fallBack, 1e-15));
    EXPECT_FALSE(tiny.IsOrthogonal(tiny.AnyOrthogonalUnit()));
}

TEST(VectorOrthogonal, BestAlignedComesNearestToTheHint)
{
    GeometryDraw draw(26);
    for (int i = 0; i < 3000; ++i)
    {
        const gsl_Vector v = draw.Unit() * std::pow(10.0, draw.Number(-9, 9));
        gsl_Vector unit = v;
        ASSERT_TRUE(unit.Normalize(0.0));
        const double lean = std::pow(10.0, draw.Number(-5, 0));
        const gsl_Vector hint =
            (unit * draw.Number(-1, 1) + draw.Unit() * lean) * std::pow(10.0, draw.Number(-2, 6));
        const gsl_Vector best = v.BestAlignedOrthogonalUnit(hint);
        ASSERT_NEAR(Length(best), 1.0, 1e-15);
        ASSERT_NEAR(best.DotProduct(unit), 0.0, 1e-15);
        // No other direction in the plane across v comes nearer to the hint.
        const gsl_Vector other = unit.CrossProduct(best);
        for (const double angle : {-0.5, -1e-3, 1e-3, 0.5, 3.0})
        {
            const gsl_Vector rival = best * std::cos(angle) + other * std::sin(angle);
            ASSERT_GT(best.DotProduct(hint), rival.DotProduct(hint));
        }
    }
}

TEST(VectorOrthogonal, BestAlignedFallsBack)
{
    for (const gsl_Vector& hint : {ZERO, X * 5, X * -1e12, gsl_Vector(1, 1e-8, 0)})
    {
        EXPECT_TRUE(Same(X.BestAlignedOrthogonalUnit(hint), X.AnyOrthogonalUnit()));
    }
    EXPECT_TRUE(Same(ZERO.BestAlignedOrthogonalUnit(gsl_Vector(0, 3, 0)), Y));
}

TEST(Vector, ProjectionLosesTheNormalComponent)
{
    GeometryDraw draw(27);
    for (int i = 0; i < 1000; ++i)
    {
        const gsl_Plane plane(draw.Point(100), draw.Unit() * 4.0);
        const gsl_Vector v = draw.Unit() * draw.Number(0, 10);
        const gsl_Vector flat = v.ProjectOn(plane);
        ASSERT_NEAR(flat.DotProduct(plane.Direction()), 0, 1e-14);
        ASSERT_NEAR((v - flat).CrossProduct(plane.Direction()).Magnitude(), 0, 1e-14);
    }
    EXPECT_TRUE(Same(gsl_Vector(1, 2, 3).ProjectOn(gsl_Plane()), gsl_Vector(1, 2, 3)));
}

TEST(Vector, PrintsMagnitudeThenComponents)
{
    std::ostringstream text;
    gsl_Vector(3, -4, 0).Print(text, 2);
    EXPECT_EQ(text.str(), "  magnitude:\t5\n  3\ty:\t-4\tz:\t0\n");
}
}
