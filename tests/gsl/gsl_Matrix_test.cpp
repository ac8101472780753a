// Transforms against oracles that share no formula with them: rotations by quaternion products.
#include <testing/GeometryTesting.h>

#include <gsl_Matrix.h>
#include <nex_RangeException.h>
#include <numbers>

namespace
{
constexpr double PI = std::numbers::pi;
const gsl_Vector X(1, 0, 0);
const gsl_Vector Y(0, 1, 0);
const gsl_Vector Z(0, 0, 1);

/// Rotations by half angles; the Hamilton product.
struct Quaternion
{
    double w, x, y, z;

    static Quaternion Turn(const gsl_Vector& axis, double angle)
    {
        const double s = std::sin(angle / 2);
        return {std::cos(angle / 2), axis.X() * s, axis.Y() * s, axis.Z() * s};
    }
    Quaternion operator*(const Quaternion& r) const
    {
        return {w * r.w - x * r.x - y * r.y - z * r.z, w * r.x + x * r.w + y * r.z - z * r.y,
                w * r.y - x * r.z + y * r.w + z * r.x, w * r.z + x * r.y - y * r.x + z * r.w};
    }
    gsl_Vector Rotate(const gsl_Vector& v) const
    {
        const Quaternion r = *this * Quaternion{0, v.X(), v.Y(), v.Z()} * Quaternion{w, -x, -y, -z};
        return {r.x, r.y, r.z};
    }
};

gsl_Matrix Rotation(const gsl_Vector& axis, double angle)
{
    gsl_Matrix matrix;
    EXPECT_TRUE(matrix.AxisRotation(axis, angle));
    return matrix;
}

gsl_Matrix RandomRigid(GeometryDraw& draw)
{
    gsl_Matrix matrix = Rotation(draw.Unit(), draw.Number(-PI, PI));
    matrix.SetTranslation(gsl_Vector(draw.Point(50)));
    return matrix;
}

gsl_Matrix RandomAny(GeometryDraw& draw)
{
    double values[16];
    for (double& value : values)
    {
        value = draw.Number(-3, 3);
    }
    gsl_Matrix matrix;
    matrix.FromArray(values);
    return matrix;
}

testing::AssertionResult NearMatrix(const gsl_Matrix& a, const gsl_Matrix& b, double tolerance)
{
    for (int r = 0; r < 4; ++r)
    {
        for (int c = 0; c < 4; ++c)
        {
            if (!(std::abs(a(r, c) - b(r, c)) <= tolerance))
            {
                return testing::AssertionFailure() << "entries (" << r << "," << c << ") " << a(r, c)
                                                   << " and " << b(r, c) << ", allowed " << tolerance;
            }
        }
    }
    return testing::AssertionSuccess();
}

TEST(Matrix, EntriesRowsAndColumns)
{
    gsl_Matrix matrix;
    EXPECT_TRUE(matrix.IsIdentity());
    const double row[] = {1, 2, 3, 4};
    const double column[] = {5, 6, 7, 8};
    matrix.SetRow(1, row);
    matrix.SetColumn(2, column);
    matrix.Set(3, 0, 9);
    const double expected[16] = {1, 0, 5, 0, 1, 2, 6, 4, 0, 0, 7, 0, 9, 0, 8, 1};
    double values[16];
    matrix.AsArray(values);
    for (int i = 0; i < 16; ++i)
    {
        EXPECT_EQ(values[i], expected[i]) << i;
        EXPECT_EQ(matrix(i / 4, i % 4), expected[i]) << i;
        EXPECT_EQ(matrix.To2DArray()(i / 4, i % 4), expected[i]) << i;
    }
    gsl_Matrix back;
    EXPECT_TRUE(back.From2DArray(matrix.To2DArray()));
    EXPECT_TRUE(NearMatrix(back, matrix, 0));
}

TEST(Matrix, RefusesWhatIsNotFourByFour)
{
    const gsl_Matrix before = Rotation(X, 1);
    for (const auto& [rows, columns] : {std::pair{3, 4}, {4, 3}, {5, 4}, {0, 0}, {16, 1}})
    {
        gsl_Matrix matrix = before;
        EXPECT_FALSE(matrix.From2DArray(cow_2DArray<double>(rows, columns, 1.0)));
        EXPECT_TRUE(NearMatrix(matrix, before, 0));
    }
    gsl_Matrix matrix;
    const double four[4] = {};
    for (const int outside : {-1, 4})
    {
        EXPECT_THROW(matrix.Set(outside, 0, 1), nex_RangeException);
        EXPECT_THROW(matrix.Set(0, outside, 1), nex_RangeException);
        EXPECT_THROW(matrix.SetRow(outside, four), nex_RangeException);
        EXPECT_THROW(matrix.SetColumn(outside, four), nex_RangeException);
        EXPECT_THROW((void)matrix(outside, 0), nex_RangeException);
        EXPECT_THROW((void)matrix(0, outside), nex_RangeException);
    }
    EXPECT_THROW((void)matrix.NewAxis(3), nex_RangeException);
    EXPECT_TRUE(matrix.IsIdentity());
}

// Away from the identity by one entry and back again, through every setter.
TEST(Matrix, IdentityFlagFollowsEveryEntry)
{
    for (int r = 0; r < 4; ++r)
    {
        for (int c = 0; c < 4; ++c)
        {
            gsl_Matrix matrix;
            const double unit = r == c ? 1 : 0;
            matrix.Set(r, c, unit + 1e-300);
            EXPECT_EQ(matrix.IsIdentity(), unit == 1) << "1 + 1e-300 is 1 exactly";
            matrix.Set(r, c, std::nextafter(unit, 2));
            EXPECT_FALSE(matrix.IsIdentity());
            matrix.Set(r, c, unit);
            EXPECT_TRUE(matrix.IsIdentity());
        }
    }
    gsl_Matrix matrix;
    matrix.SetTranslation(gsl_Vector(1, 0, 0));
    EXPECT_FALSE(matrix.IsIdentity());
    matrix.SetTranslation(gsl_Vector(0, -0.0, 0));
    EXPECT_TRUE(matrix.IsIdentity());
    matrix.SetRotationVectors(Y, Z, X);
    EXPECT_FALSE(matrix.IsIdentity());
    matrix.SetRotationVectors(X, Y, Z);
    EXPECT_TRUE(matrix.IsIdentity());
    EXPECT_TRUE(Rotation(Z, 0).IsIdentity());
    EXPECT_FALSE(Rotation(Z, 1).IsIdentity());
    matrix = Rotation(Z, 1);
    matrix.FillIdentity();
    EXPECT_TRUE(matrix.IsIdentity());
}

TEST(Matrix, ColumnsAreImagesOfTheFrame)
{
    gsl_Matrix matrix;
    matrix.SetRotationVectors(gsl_Vector(1, 2, 3), gsl_Vector(4, 5, 6), gsl_Vector(7, 8, 9));
    matrix.SetTranslation(gsl_Vector(10, 11, 12));
    EXPECT_TRUE(Same(matrix.NewXAxis(), gsl_Vector(1, 2, 3)));
    EXPECT_TRUE(Same(matrix.NewYAxis(), gsl_Vector(4, 5, 6)));
    EXPECT_TRUE(Same(matrix.NewZAxis(), gsl_Vector(7, 8, 9)));
    EXPECT_TRUE(Same(matrix.NewOrigin(), gsl_Point(10, 11, 12)));
    EXPECT_TRUE(Same(matrix.GetTranslation(), gsl_Vector(10, 11, 12)));
    EXPECT_TRUE(Same(matrix.Transform(X), matrix.NewXAxis()));
    EXPECT_TRUE(Same(matrix.Transform(gsl_Point(0, 0, 0)), matrix.NewOrigin()));
    EXPECT_TRUE(Same(matrix.Transform(gsl_Point(0, 1, 0)), gsl_Point(14, 16, 18)));
}

// The last row scales nothing: no perspective division.
TEST(Matrix, LastRowDoesNotDivide)
{
    gsl_Matrix matrix;
    matrix.Set(3, 3, 2);
    matrix.Set(3, 0, 5);
    EXPECT_TRUE(Same(matrix.Transform(gsl_Point(1, 2, 3)), gsl_Point(1, 2, 3)));
}

TEST(Matrix, AxisRotationAgreesWithQuaternions)
{
    GeometryDraw draw(50);
    for (int i = 0; i < 3000; ++i)
    {
        const gsl_Vector axis = draw.Unit();
        const double angle = draw.Number(-10, 10);
        const gsl_Matrix matrix = Rotation(axis * draw.Number(1e-5, 100), angle);
        const gsl_Vector v = draw.Unit() * draw.Number(0, 10);
        ASSERT_TRUE(Near(matrix.Transform(v), Quaternion::Turn(axis, angle).Rotate(v), 1e-13));
        ASSERT_TRUE(Near(matrix.Transform(gsl_Point(v.X(), v.Y(), v.Z())),
                         gsl_Point(matrix.Transform(v).X(), matrix.Transform(v).Y(), matrix.Transform(v).Z()),
                         0));
        // Orthogonal and right-handed.
        for (int a = 0; a < 3; ++a)
        {
            for (int b = 0; b < 3; ++b)
            {
                ASSERT_NEAR(matrix.NewAxis(a).DotProduct(matrix.NewAxis(b)), a == b ? 1 : 0, 1e-15 * 4);
            }
        }
        ASSERT_NEAR(matrix.NewXAxis().TripleProduct(matrix.NewYAxis(), matrix.NewZAxis()), 1.0, 1e-14);
    }
    EXPECT_TRUE(Near(Rotation(Z, PI / 2).Transform(X), Y, 1e-15));
}

TEST(Matrix, AxisRotationReplacesEverythingAndRefusesNoAxis)
{
    gsl_Matrix matrix;
    matrix.SetTranslation(gsl_Vector(1, 2, 3));
    EXPECT_FALSE(matrix.AxisRotation(gsl_Vector(0, 0, 0), 1));
    EXPECT_FALSE(matrix.AxisRotation(gsl_Vector(0.9e-6, 0, 0), 1));
    EXPECT_TRUE(Same(matrix.GetTranslation(), gsl_Vector(1, 2, 3)));
    EXPECT_TRUE(matrix.AxisRotation(X, 1));
    EXPECT_TRUE(Same(matrix.GetTranslation(), gsl_Vector(0, 0, 0)));
}

TEST(Matrix, AxisAndAngleComeBack)
{
    GeometryDraw draw(51);
    for (int i = 0; i < 5000; ++i)
    {
        const gsl_Vector axis = draw.Unit();
        double angle = draw.Number(0, PI);
        if (i % 3 == 1)
        {
            angle = std::pow(10.0, draw.Number(-9, -3));
        }
        else if (i % 3 == 2)
        {
            angle = PI - std::pow(10.0, draw.Number(-9, -3));
        }
        gsl_Vector foundAxis;
        double foundAngle = -1;
        Rotation(axis, angle).GetAxisRotation(foundAxis, foundAngle);
        ASSERT_NEAR(foundAngle, angle, 1e-15 * 4);
        ASSERT_TRUE(Near(foundAxis, axis, 1e-15 * 20 / std::min(angle, 1.0))) << angle;
    }
}

TEST(Matrix, AxisAtAngleZeroAndPi)
{
    gsl_Vector axis;
    double angle = -1;
    gsl_Matrix().GetAxisRotation(axis, angle);
    EXPECT_EQ(angle, 0.0);
    EXPECT_TRUE(Same(axis, Z));
    GeometryDraw draw(52);
    for (int i = 0; i < 1000; ++i)
    {
        const gsl_Vector k = draw.Unit();
        Rotation(k, PI).GetAxisRotation(axis, angle);
        ASSERT_NEAR(angle, PI, 1e-15);
        const double largest = std::max({std::abs(k.X()), std::abs(k.Y()), std::abs(k.Z())});
        const bool negative = std::min({k.X(), k.Y(), k.Z()}) == -largest;
        ASSERT_TRUE(Near(axis, negative ? k * -1 : k, 1e-14));
    }
    // Half turns by entries that are exact.
    for (int i = 0; i < 3; ++i)
    {
        gsl_Matrix half;
        for (int k = 0; k < 3; ++k)
        {
            half.Set(k, k, k == i ? 1 : -1);
        }
        half.GetAxisRotation(axis, angle);
        EXPECT_EQ(angle, PI);
        EXPECT_EQ(axis[i], 1.0);
        EXPECT_EQ(axis.Magnitude(), 1.0);
    }
}

gsl_Vector Euler(double x, double y, double z, const gsl_Vector& v)
{
    return (Quaternion::Turn(Z, z) * Quaternion::Turn(Y, y) * Quaternion::Turn(X, x)).Rotate(v);
}

gsl_Matrix EulerMatrix(double x, double y, double z)
{
    gsl_Matrix matrix;
    matrix.SetRotationVectors(Euler(x, y, z, X), Euler(x, y, z, Y), Euler(x, y, z, Z));
    return matrix;
}

TEST(Matrix, EulerAnglesComeBack)
{
    GeometryDraw draw(53);
    for (int i = 0; i < 5000; ++i)
    {
        const double x = draw.Number(-PI, PI);
        const double y = draw.Number(-1.57, 1.57);
        const double z = draw.Number(-PI, PI);
        const gsl_Matrix matrix = EulerMatrix(x, y, z);
        double found[3] = {9, 9, 9};
        matrix.GetEulerianAnglesZYX(found[2], found[1], found[0]);
        ASSERT_NEAR(found[0], x, 1e-12);
        ASSERT_NEAR(found[1], y, 1e-12);
        ASSERT_NEAR(found[2], z, 1e-12);
        double again[3];
        matrix.GetRotationAngles(again[0], again[1], again[2]);
        ASSERT_TRUE(std::equal(found, found + 3, again));
    }
}

// At the pole x and z turn about one axis: all of it is given to z, and the matrix comes back.
TEST(Matrix, EulerAnglesAtThePole)
{
    GeometryDraw draw(54);
    for (int i = 0; i < 2000; ++i)
    {
        const double pole = draw.Coin() ? PI / 2 : -PI / 2;
        const double x = draw.Number(-PI, PI);
        const double z = draw.Number(-PI, PI);
        const double short_of = i % 2 == 0 ? 0 : draw.Number(0, 1.4e-5);
        const gsl_Matrix matrix = EulerMatrix(x, pole > 0 ? pole - short_of : pole + short_of, z);
        double a = 9;
        double b = 9;
        double c = 9;
        matrix.GetEulerianAnglesZYX(a, b, c);
        ASSERT_EQ(c, 0.0);
        ASSERT_NEAR(b, pole, 1.5e-5);
        ASSERT_TRUE(NearMatrix(EulerMatrix(c, b, a), matrix, 3e-5 * (i % 2) + 3e-8));
    }
    // Entries a little beyond 1, as products leave them, are taken for the pole.
    gsl_Matrix beyond = EulerMatrix(0, PI / 2, 0.5);
    beyond.Set(2, 0, -1.0000000001);
    double a = 9;
    double b = 9;
    double c = 9;
    beyond.GetEulerianAnglesZYX(a, b, c);
    EXPECT_EQ(b, PI / 2);
    EXPECT_NEAR(a, 0.5, 1e-15);
    EXPECT_EQ(c, 0.0);
}

TEST(Matrix, ConcatenationAppliesTheSecondFirst)
{
    GeometryDraw draw(55);
    for (int i = 0; i < 1000; ++i)
    {
        const gsl_Matrix a = RandomRigid(draw);
        const gsl_Matrix b = RandomRigid(draw);
        const gsl_Matrix c = RandomRigid(draw);
        gsl_Matrix ab = a;
        ab.Concatenate(b);
        const gsl_Point p = draw.Point(10);
        ASSERT_TRUE(Near(ab.Transform(p), a.Transform(b.Transform(p)), 1e-12));
        gsl_Matrix bc = b;
        bc.Concatenate(c);
        gsl_Matrix left = ab;
        left.Concatenate(c);
        gsl_Matrix right = a;
        right.Concatenate(bc);
        ASSERT_TRUE(NearMatrix(left, right, 1e-12));
    }
    // All four rows and columns take part, also of what is no transform.
    for (int i = 0; i < 100; ++i)
    {
        const gsl_Matrix a = RandomAny(draw);
        const gsl_Matrix b = RandomAny(draw);
        gsl_Matrix ab = a;
        ab.Concatenate(b);
        gsl_Matrix self = a;
        self.Concatenate(self);
        for (int r = 0; r < 4; ++r)
        {
            for (int c = 0; c < 4; ++c)
            {
                ASSERT_NEAR(ab(r, c),
                            a(r, 0) * b(0, c) + a(r, 1) * b(1, c) + a(r, 2) * b(2, c) + a(r, 3) * b(3, c),
                            1e-13);
                ASSERT_NEAR(self(r, c),
                            a(r, 0) * a(0, c) + a(r, 1) * a(1, c) + a(r, 2) * a(2, c) + a(r, 3) * a(3, c),
                            1e-13);
            }
        }
    }
}

TEST(Matrix, InverseOfARigidTransform)
{
    GeometryDraw draw(56);
    for (int i = 0; i < 1000; ++i)
    {
        const gsl_Matrix a = RandomRigid(draw);
        gsl_Matrix product = a;
        product.Concatenate(a.InverseRigidTransform());
        ASSERT_TRUE(NearMatrix(product, gsl_Matrix(), 1e-13));
        const gsl_Point p = draw.Point(10);
        ASSERT_TRUE(Near(a.InverseRigidTransform().Transform(a.Transform(p)), p, 1e-12));
        ASSERT_TRUE(NearMatrix(a.InverseRigidTransform().InverseRigidTransform(), a, 1e-12));
    }
    EXPECT_TRUE(gsl_Matrix().InverseRigidTransform().IsIdentity());
}

TEST(Matrix, DistancesAndAnglesSurviveARigidTransform)
{
    GeometryDraw draw(57);
    for (int i = 0; i < 1000; ++i)
    {
        const gsl_Matrix a = RandomRigid(draw);
        gsl_Point p = draw.Point(10);
        gsl_Point q = draw.Point(10);
        gsl_Vector v = draw.Unit();
        const double apart = p.GetDistance(q);
        const double along = v.DotProduct(q - p);
        p.Transform(a);
        q.Transform(a);
        v.RotateAndTransform(a);
        ASSERT_NEAR(p.GetDistance(q), apart, 1e-12);
        ASSERT_NEAR(v.DotProduct(q - p), along, 1e-12);
    }
}

TEST(Matrix, EqualityIsTolerantEntryByEntry)
{
    for (int r = 0; r < 4; ++r)
    {
        for (int c = 0; c < 4; ++c)
        {
            gsl_Matrix a = Rotation(gsl_Vector(1, 2, 3), 1);
            gsl_Matrix b = a;
            EXPECT_TRUE(a == b);
            a.Set(r, c, 0);
            b.Set(r, c, 1e-6);
            EXPECT_TRUE(a == b) << "the bound is inclusive";
            b.Set(r, c, 1.1e-6);
            EXPECT_TRUE(a != b);
        }
    }
}
}
