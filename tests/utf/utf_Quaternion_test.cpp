#include <cls_PersistentValue.h>
#include <gsl_Matrix.h>
#include <nex_PrimException.h>
#include <numbers>
#include <sstream>
#include <testing/ExpectRaise.h>
#include <testing/GeometryTesting.h>
#include <testing/MemoryStore.h>
#include <utf_QuaternionDoubleAdapter.h>
#include <utf_QuaternionFloatAdapter.h>
#include <utf_Tensor.h>
#include <utf_Vector.h>

namespace
{
using namespace geometry;
using std::numbers::pi;
constexpr res_DataTypeEnm PLANE = res_DataTypeEnm::QUATERNION_2D;
constexpr res_DataTypeEnm SPACE = res_DataTypeEnm::QUATERNION_3D;

/// v turned about the unit axis n (O. Rodrigues, 1840).
gsl_Vector Turned(const gsl_Vector& v, const gsl_Vector& n, double angle)
{
    return v * std::cos(angle) + n.CrossProduct(v) * std::sin(angle) +
           n * (n.DotProduct(v) * (1 - std::cos(angle)));
}

template <class T>
class QuaternionOf : public testing::Test
{
public:
    using Kind = utf_Quaternion<T>;
    static constexpr double EPSILON = std::numeric_limits<T>::epsilon();

    static Kind Make(res_DataTypeEnm type, std::vector<double> values)
    {
        return {type, std::vector<T>(values.begin(), values.end()).data()};
    }
    static Kind About(const gsl_Vector& n, double angle)
    {
        const double s = std::sin(angle / 2);
        return Make(SPACE, {n.X() * s, n.Y() * s, n.Z() * s, std::cos(angle / 2)});
    }
    static std::vector<T> Components(const Kind& q)
    {
        return {q.components(), q.components() + Kind::numComponents(q.type())};
    }
    static gsl_Vector Vector(const Kind& q)
    {
        const cow_List<T> vector = q.toVector();
        return {vector[0], vector[1], vector[2]};
    }
    static gsl_Vector Turn(const Kind& q, const gsl_Vector& v)
    {
        const auto turned = utf_Vector<T>(T(v.X()), T(v.Y()), T(v.Z())).transform(q);
        return {turned.X(), turned.Y(), turned.Z()};
    }
    static testing::AssertionResult SameTurn(const Kind& a, const Kind& b)
    {
        for (const gsl_Vector& axis : {X, Y, Z})
            if (const auto near = Near(Turn(a, axis), Turn(b, axis), 16 * EPSILON); !near)
                return near;
        return testing::AssertionSuccess();
    }

    GeometryDraw draw{7};
};
using Both = testing::Types<double, float>;
TYPED_TEST_SUITE(QuaternionOf, Both);

TYPED_TEST(QuaternionOf, TurnsVectorsAndComesBackFromWhateverItGives)
{
    using F = TestFixture;
    for (int i = 0; i < 5000; ++i)
    {
        const gsl_Vector n = this->draw.Unit(), m = this->draw.Unit(), v = this->draw.Unit();
        const double angle = this->draw.Number(0.1, 6), more = this->draw.Number(0, 7);
        const auto q = F::About(n, angle), r = F::About(m, more);
        ASSERT_TRUE(Near(F::Turn(q, v), Turned(v, n, angle), 8 * F::EPSILON)) << i;
        ASSERT_TRUE(Near(F::Turn(q.inverse(), v), Turned(v, n, -angle), 8 * F::EPSILON)) << i;
        ASSERT_TRUE(Near(F::Turn(q.mult(r), v), Turned(Turned(v, m, more), n, angle), 16 * F::EPSILON)) << i;
        ASSERT_TRUE(Near(F::Vector(q), n * angle, 200 * F::EPSILON)) << angle;
        const gsl_Vector x = Turned(X, n, angle), y = Turned(Y, n, angle), z = Turned(Z, n, angle);
        gsl_Matrix transform;
        transform.SetRotationVectors(x * 1e-9, y * -2, z * 3e5); // of any length, left-handed: Y is reversed
        ASSERT_TRUE(F::SameTurn(q, {SPACE, q.cosines()})) << i;
        ASSERT_TRUE(F::SameTurn(q, {SPACE, transform})) << i;
        ASSERT_TRUE(F::SameTurn(q, {x, y, z})) << i;
    }
}

TYPED_TEST(QuaternionOf, PlaneIsSpaceAboutZ)
{
    using F = TestFixture;
    for (int i = 0; i < 500; ++i)
    {
        const double angle = this->draw.Number(-pi, pi);
        const auto q = F::Make(PLANE, {std::sin(angle / 2), std::cos(angle / 2)});
        const auto space = F::About(Z, angle);
        const gsl_Vector x = Turned(X, Z, angle) * 2, y = Turned(Y, Z, angle);
        gsl_Matrix transform; // the turn is its X axis', however far that one leads out of the plane
        transform.SetRotationVectors(x + Z * 9, X, X);
        ASSERT_TRUE(F::SameTurn(q.mult(q), space.mult(space))) << angle;
        for (const auto& back :
             {typename F::Kind(PLANE, q.quatToCosine2D()), {PLANE, q.cosines()}, {PLANE, transform}, {x, y}})
            ASSERT_TRUE(F::SameTurn(back, space)) << angle;
        const auto v = utf_Vector<TypeParam>(2, 1).transform(q);
        ASSERT_TRUE(Near(gsl_Vector(v.X(), v.Y(), v.Z()), x + y, 8 * F::EPSILON)) << angle;
    }
}

TYPED_TEST(QuaternionOf, RotationVectorsAreZeroWhereTheScalarLeavesNoAngle)
{
    using F = TestFixture;
    const double above = 1 + 2 * F::EPSILON; // by rounding
    for (const auto& q : {F::Make(SPACE, {1, 1, 1, -1}), F::Make(SPACE, {1, 1, 1, above}),
                          F::Make(PLANE, {1, above}), F::About(X, F::EPSILON < 1e-10 ? 1e-8 : 1e-4)})
        EXPECT_TRUE(Same(F::Vector(q), gsl_Vector()));
    TypeParam c[] = {TypeParam(0.6), TypeParam(0.8), 7}; // the result over the components
    utf_Quat2dBase<TypeParam>(c).toVector(c);
    EXPECT_TRUE(Near(gsl_Vector(c[0], c[1], c[2]), Z * std::acos(0.28), 4 * F::EPSILON));
}

TYPED_TEST(QuaternionOf, ProjectionIsTheNearestTurnOfQAboutItsAxis)
{
    using F = TestFixture;
    const gsl_Vector axes[] = {X, Y, Z};
    // Apart by i, without a scalar.
    const auto j = F::Make(SPACE, {0, 1, 0, 0}), k = F::Make(SPACE, {0, 0, 1, 0});
    EXPECT_EQ(F::Components(k.projectOn(j, 1, 0)), F::Components(j));
    for (unsigned i = 0; i < 300; ++i)
    {
        const auto p = F::About(this->draw.Unit(), this->draw.Number(0, 7));
        const auto q = F::About(this->draw.Unit(), this->draw.Number(0, 7));
        const auto projected = p.projectOn(q, i % 3, 1e-6);
        ASSERT_TRUE(Near(F::Turn(projected, axes[i % 3]), F::Turn(q, axes[i % 3]), 32 * F::EPSILON)) << i;
        // How near a turn of q about the axis can come to p, by Cauchy and Schwarz.
        const auto apart = F::Components(q.inverse().mult(p));
        ASSERT_NEAR(std::abs(projected.mult(p.inverse()).components()[3]), std::hypot(apart[i % 3], apart[3]),
                    16 * F::EPSILON);
        // Half a turn about another axis has no part about this one.
        const auto across = q.mult(F::About(axes[(i + 1) % 3], pi));
        ASSERT_TRUE(F::SameTurn(across.projectOn(q, i % 3, 1e-5), q)) << i;
        ASSERT_EQ(F::Components(p.projectOn(q, 3, 1e-6)), F::Components(p));
    }
}

TYPED_TEST(QuaternionOf, RefusesWrongKindsAndShapes)
{
    using F = TestFixture;
    using Q = typename F::Kind;
    using Array = cow_2DArray<TypeParam>;
    using Prim = nex_PrimException;
    const auto planar = F::Make(PLANE, {0, 1}), spatial = F::About(X, 0.1);
    EXPECT_RAISE(Q(res_DataTypeEnm::TENSOR_3D_FULL, gsl_Matrix()), Prim, "Unknown quaternion type");
    EXPECT_RAISE(planar.mult(spatial), Prim, "q.type() == QuaternionType()");
    EXPECT_RAISE(Q(SPACE, Array(3, 2)), Prim, "c.Rows() == 3 && c.Cols() == 3");
    EXPECT_RAISE(Q(PLANE, Array(4, 3)), Prim, "c.Rows()==2 || c.Rows()==3");
    const utf_Vector<TypeParam> flat(1, 2);
    EXPECT_EQ(flat.transform(spatial).Z(), 0); // cos 0.1 = 0.995
    EXPECT_RAISE(flat.transform(F::About(X, 0.15)), Prim, "Not a valid 2D transform");
    EXPECT_RAISE(flat.transform(F::Make(SPACE, {0, 0, 0, NAN})), Prim, "Not a valid 2D transform");
}

TYPED_TEST(QuaternionOf, ATensorIsThatOfItsPrincipalValuesAndAxes)
{
    const TypeParam s[] = {7, -1, 2, 3, 5, -4};
    TypeParam values[6] = {};
    const auto axes = utf_Tensor<TypeParam>(s).principal(values);
    const auto back = utf_Tensor<TypeParam>(values).transform(axes);
    for (int k = 0; k < 6; ++k)
        EXPECT_NEAR(back.components()[k], s[k], 50 * TestFixture::EPSILON);
    const auto planar = back.transform(TestFixture::Make(PLANE, {0.6, 0.8}));
    const auto spatial = back.transform(TestFixture::Make(SPACE, {0, 0, 0.6, 0.8}));
    EXPECT_TRUE(std::equal(spatial.components(), spatial.components() + 6, planar.components()));
}

TEST(Quaternion, PrintsItselfIndented)
{
    std::ostringstream text;
    QuaternionOf<double>::Make(SPACE, {0, 0, 1, 0}).Print(text, 2);
    EXPECT_EQ(text.str(), "  Qauternion:\n  0 0 1 0\n  As Vector:\n  0 0 3.14159\n"
                          "  As transformation matrix:\n  -1 0 0\n  0 -1 0\n  0 0 1\n");
}

/// As someone would store quaternions who has a type id to give.
template <class T>
struct Stored : utf_Quaternion<T>
{
    static unsigned TypeId() { return 0x7F0001; }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (writer.AnnounceValue(TypeId()))
            utf_Quaternion<T>::DBWrite(writer);
    }
};

TYPED_TEST(QuaternionOf, ComesBackThroughItsAdapter)
{
    using F = TestFixture;
    const cls_AdapterBase* adapter = sizeof(TypeParam) == sizeof(double)
                                         ? utf_QuaternionDoubleAdapter::Instance()
                                         : utf_QuaternionFloatAdapter::Instance();
    MemoryStore store;
    const auto q = F::About(X, 1);
    const int number = store.Write(Stored<TypeParam>{q});
    const auto created = adapter->Create(*store.Reader(number));
    const auto* back = cls_PersistentCast<typename F::Kind>(created.get());
    EXPECT_EQ(F::Components(*back), F::Components(q));
    store.LastPart(number).Set("type", cls_AttributeType::INT, int(PLANE));
    EXPECT_RAISE(adapter->Create(*store.Reader(number)), nex_PrimException,
                 "Wrong number of quaternion components");
}
}
