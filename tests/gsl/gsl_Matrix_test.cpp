// Transforms against oracles that share no formula with them: rotations by what becomes of a known frame.
#include <testing/GeometryTesting.h>

#include <functional>
#include <gsl_Matrix.h>
#include <numbers>

namespace
{
using namespace geometry;
constexpr double PI = std::numbers::pi;

gsl_Matrix Rotation(const gsl_Vector& axis, double angle)
{
    gsl_Matrix matrix;
    EXPECT_TRUE(matrix.AxisRotation(axis, angle));
    return matrix;
}

gsl_Matrix RandomRigid(GeometryDraw& draw)
{
    const Frame f = draw.Frame();
    gsl_Matrix matrix;
    matrix.SetRotationVectors(f.n, f.u, f.v);
    matrix.SetTranslation(gsl_Vector(draw.Point(50)));
    return matrix;
}

testing::AssertionResult NearMatrix(const gsl_Matrix& a, const gsl_Matrix& b, double tolerance)
{
    for (int i = 0; i < 16; ++i)
        if (!(std::abs(a(i / 4, i % 4) - b(i / 4, i % 4)) <= tolerance))
            return testing::AssertionFailure() << "entry " << i << ": " << a(i / 4, i % 4) << " and "
                                               << b(i / 4, i % 4) << ", allowed " << tolerance;
    return testing::AssertionSuccess();
}

// Away from the identity by one entry and back again, where the flag is exact and equality is not; then
// through every other setter.
TEST(Matrix, IdentityFlagAndEqualityFollowEveryEntry)
{
    gsl_Matrix matrix;
    for (int i = 0; i < 16; ++i)
    {
        const double unit = i % 5 == 0 ? 1 : 0;
        matrix.Set(i / 4, i % 4, std::nextafter(unit, 2));
        EXPECT_TRUE(!matrix.IsIdentity() && matrix == gsl_Matrix());
        matrix.Set(i / 4, i % 4, unit - 1.1e-6);
        EXPECT_TRUE(matrix != gsl_Matrix());
        matrix.Set(i / 4, i % 4, unit);
        EXPECT_TRUE(matrix.IsIdentity());
    }
    const double identity[] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0}; // and one more to shift by
    const std::function<void(double)> setters[] = {
        [&](double by) { matrix.SetTranslation(gsl_Vector(0, by, -0.0)); },
        [&](double by) { matrix.SetRotationVectors(X, Y, Z + X * by); },
        [&](double by) { (void)matrix.AxisRotation(Z, by); },
        [&](double by) { by == 0 ? matrix.FillIdentity() : matrix.FromArray(identity + 1); },
        [&](double by) { matrix.SetRow(2, identity + (by == 0 ? 8 : 4)); },
        [&](double by) { matrix.SetColumn(1, identity + (by == 0 ? 4 : 8)); }};
    for (const auto& set : setters)
        for (const double by : {1.0, 0.0})
        {
            set(by);
            EXPECT_EQ(matrix.IsIdentity(), by == 0) << &set - setters;
        }
}

TEST(Matrix, ColumnsAreImagesOfTheFrameAndTheLastRowDividesNothing)
{
    gsl_Matrix matrix;
    matrix.SetRotationVectors(gsl_Vector(1, 2, 3), gsl_Vector(4, 5, 6), gsl_Vector(7, 8, 9));
    matrix.SetTranslation(gsl_Vector(10, 11, 12));
    matrix.Set(3, 3, 2);
    matrix.Set(3, 0, 5);
    EXPECT_TRUE(Same(matrix.Transform(Y), gsl_Vector(4, 5, 6))) << "no translation for a vector";
    EXPECT_TRUE(Same(matrix.Transform(gsl_Point(0, 0, 1)), gsl_Point(17, 19, 21)));
}

// The axis stays, what lies across it turns by the angle; and axis and angle come back.
TEST(Matrix, AxisRotationTurnsAFrameAndComesBack)
{
    GeometryDraw draw(51);
    gsl_Vector axis;
    double found = -1;
    for (int i = 0; i < 3000; ++i)
    {
        const Frame f = draw.Frame();
        const double small = std::pow(10.0, draw.Number(-9, -3));
        const double angle = i % 3 == 0 ? draw.Number(0, PI) : i % 3 == 1 ? small : PI - small;
        gsl_Matrix matrix = RandomRigid(draw);
        ASSERT_TRUE(matrix.AxisRotation(f.n * draw.Number(1e-5, 100), angle - 2 * PI * draw.Whole(-1, 2)));
        ASSERT_TRUE(Same(matrix.GetTranslation(), gsl_Vector())) << "everything is replaced";
        ASSERT_TRUE(Near(matrix.Transform(f.n), f.n, 1e-14));
        ASSERT_TRUE(Near(matrix.Transform(f.u), f.u * std::cos(angle) + f.v * std::sin(angle), 1e-14));
        ASSERT_TRUE(Near(matrix.Transform(f.v), f.v * std::cos(angle) - f.u * std::sin(angle), 1e-14));
        Rotation(f.n, angle).GetAxisRotation(axis, found);
        ASSERT_NEAR(found, angle, 4e-15);
        ASSERT_TRUE(Near(axis, f.n, 2e-14 / std::min(angle, 1.0))) << angle;
        // A half turn has two axes: the one whose largest component is positive.
        Rotation(f.n, PI).GetAxisRotation(axis, found);
        const double largest = std::max({std::abs(f.n.X()), std::abs(f.n.Y()), std::abs(f.n.Z())});
        ASSERT_NEAR(found, PI, 1e-15);
        ASSERT_TRUE(Near(axis, std::min({f.n.X(), f.n.Y(), f.n.Z()}) == -largest ? f.n * -1 : f.n, 1e-14));
    }
    gsl_Matrix kept;
    kept.GetAxisRotation(axis, found);
    EXPECT_TRUE(found == 0.0 && Same(axis, Z));
    EXPECT_FALSE(kept.AxisRotation(gsl_Vector(), 1) || kept.AxisRotation(X * 0.9e-6, 1));
    EXPECT_TRUE(kept.IsIdentity());
}

// The three angles, about X first and about Z last, come back; at the pole X and Z turn about one axis: all
// of it is given to Z, and the matrix comes back.
TEST(Matrix, EulerAnglesComeBack)
{
    GeometryDraw draw(53);
    const auto turned = [](double x, double y, double z) {
        gsl_Matrix matrix = Rotation(Z, z);
        matrix.Concatenate(Rotation(Y, y));
        matrix.Concatenate(Rotation(X, x));
        return matrix;
    };
    double found[3];
    for (int i = 0; i < 3000; ++i)
    {
        const bool atPole = i % 3 == 0;
        const double shortOf = atPole ? draw.Number(0, 1.4e-5) * (i % 2) : draw.Number(1e-3, 3.14);
        const double x = draw.Number(-PI, PI);
        const double y = (PI / 2 - shortOf) * (draw.Coin() ? 1 : -1);
        const double z = draw.Number(-PI, PI);
        const gsl_Matrix matrix = turned(x, y, z);
        matrix.GetEulerianAnglesZYX(found[2], found[1], found[0]);
        ASSERT_NEAR(found[0], atPole ? 0 : x, atPole ? 0 : 1e-12);
        ASSERT_NEAR(found[1], y, atPole ? 1.5e-5 : 1e-12);
        ASSERT_TRUE(NearMatrix(turned(found[0], found[1], found[2]), matrix, atPole ? 3e-5 : 1e-11));
    }
    // Entries a little beyond 1, as products leave them.
    gsl_Matrix beyond = turned(0, PI / 2, 0.5);
    beyond.Set(2, 0, -1.0000000001);
    beyond.GetRotationAngles(found[0], found[1], found[2]);
    EXPECT_TRUE(found[0] == 0 && found[1] == PI / 2 && std::abs(found[2] - 0.5) < 1e-15);
}

TEST(Matrix, RigidTransformsKeepDistancesAndHaveInverses)
{
    GeometryDraw draw(56);
    for (int i = 0; i < 500; ++i)
    {
        const gsl_Matrix a = RandomRigid(draw);
        const gsl_Point p = draw.Point(10);
        gsl_Point q = p;
        q.Transform(a);
        ASSERT_TRUE(Near(a.InverseRigidTransform().Transform(q), p, 1e-12));
        gsl_Vector v = draw.Unit();
        const gsl_Point ahead = p + v;
        v.RotateAndTransform(a);
        ASSERT_TRUE(Near(q + v, a.Transform(ahead), 1e-12));
        gsl_Matrix both = RandomRigid(draw);
        const gsl_Point expected = both.Transform(q);
        both.Concatenate(a);
        ASSERT_TRUE(Near(both.Transform(p), expected, 1e-12)) << "the second is applied first";
    }
}
}
