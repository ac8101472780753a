#include <cls_PersistentValue.h>
#include <gmock/gmock.h>
#include <gsl_Matrix.h>
#include <nex_PrimException.h>
#include <numbers>
#include <sstream>
#include <testing/ExpectRaise.h>
#include <testing/GeometryTesting.h>
#include <testing/MemoryStore.h>
#include <utf_QuaternionDoubleAdapter.h>
#include <utf_QuaternionFloatAdapter.h>
#include <utf_Routines.h>
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
        const int order = 0; // the routine takes columns for axes: the rows of cosines(), as they lie
        double rows[9], same[4];
        std::copy_n(q.cosines().Data(), 9, rows);
        utf_calquat_(same, rows, &order);
        ASSERT_TRUE(F::SameTurn(q, F::Make(SPACE, {same, same + 4}))) << i;
    }
}

TYPED_TEST(QuaternionOf, PlaneIsSpaceAboutZ)
{
    using F = TestFixture;
    for (int i = 0; i < 500; ++i)
    {
        const double angle = this->draw.Number(-pi, pi), near = 8 * F::EPSILON;
        const auto q = F::Make(PLANE, {std::sin(angle / 2), std::cos(angle / 2)});
        const auto space = F::About(Z, angle);
        const gsl_Vector x = Turned(X, Z, angle) * 2, y = Turned(Y, Z, angle);
        gsl_Matrix transform; // its Z axis has no part in it
        transform.SetRotationVectors(x, y, X);
        ASSERT_TRUE(F::SameTurn(q.mult(q), space.mult(space))) << angle;
        ASSERT_TRUE(F::SameTurn(q.inverse(), space.inverse())) << angle;
        ASSERT_TRUE(Near(F::Vector(q), F::Vector(space), near)) << angle;
        for (const auto& back :
             {typename F::Kind(PLANE, q.quatToCosine2D()), {PLANE, q.cosines()}, {PLANE, transform}, {x, y}})
            ASSERT_TRUE(F::SameTurn(back, space)) << angle;
        ASSERT_NEAR(q.R12(), space.R12_2d(),
                    near); // the planar entries of a rotation in space: by its z and w
        const auto v = utf_Vector<TypeParam>(2, 1).transform(q);
        ASSERT_TRUE(Near(gsl_Vector(v.X(), v.Y(), v.Z()), x + y, near)) << angle;
    }
}

TYPED_TEST(QuaternionOf, RotationVectorsAreZeroWhereTheScalarLeavesNoAngle)
{
    using F = TestFixture;
    const bool isDouble = F::EPSILON < 1e-10;
    const double above = 1 + 2 * F::EPSILON; // by rounding
    for (const auto& q :
         {F::Make(SPACE, {0, 0, 0, 1}), F::Make(SPACE, {1, 1, 1, -1}), F::Make(SPACE, {1, 1, 1, above}),
          F::Make(PLANE, {1, above}), F::About(X, isDouble ? 1e-8 : 1e-4)})
        EXPECT_TRUE(Same(F::Vector(q), gsl_Vector()));
    EXPECT_TRUE(Near(F::Vector(F::About(X, 1e-2)), X * 1e-2, isDouble ? 1e-13 : 4e-8));
    EXPECT_TRUE(Near(F::Vector(F::About(Z, pi / 2)), Z * (pi / 2), isDouble ? 1e-12 : 1e-6));
    EXPECT_TRUE(std::isnan(F::Vector(F::Make(SPACE, {0, 0, 1, std::nan("")})).X()));
}

TYPED_TEST(QuaternionOf, ProjectionIsTheNearestTurnOfQAboutItsAxis)
{
    using F = TestFixture;
    const gsl_Vector axes[] = {X, Y, Z};
    const auto nearness = [](const auto& a, const auto& b) {
        return std::abs(a.mult(b.inverse()).components()[3]);
    };
    for (unsigned i = 0; i < 300; ++i)
    {
        const auto p = F::About(this->draw.Unit(), this->draw.Number(0, 7));
        const auto q = F::About(this->draw.Unit(), this->draw.Number(0, 7));
        const gsl_Vector axis = axes[i % 3], other = axes[(i + 1) % 3];
        const auto projected = p.projectOn(q, i % 3, 1e-6);
        ASSERT_TRUE(Near(F::Turn(projected, axis), F::Turn(q, axis), 32 * F::EPSILON)) << i;
        for (double angle = 0; angle < 2 * pi; angle += 0.1)
            ASSERT_GE(nearness(projected, p), nearness(q.mult(F::About(axis, angle)), p) - 16 * F::EPSILON);
        ASSERT_EQ(F::Components(p.projectOn(q, 3, 1e-6)), F::Components(p));
        // Half a turn about another axis has no part about this one.
        ASSERT_TRUE(F::SameTurn(q.mult(F::About(other, pi)).projectOn(q, i % 3, 1e-5), q)) << i;
    }
    const auto p = F::Make(PLANE, {0, 1}), q = F::Make(PLANE, {1, 0});
    EXPECT_EQ(F::Components(p.projectOn(q, 2, 0)), F::Components(p));
    EXPECT_EQ(F::Components(p.projectOn(q, 1, 0)), F::Components(q));
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
    EXPECT_RAISE(spatial.projectOn(planar, 4, 0), Prim, "q.type() == QuaternionType()");
    EXPECT_RAISE(Q(SPACE, Array(3, 2)), Prim, "c.Rows() == 3 && c.Cols() == 3");
    EXPECT_RAISE(Q(PLANE, Array(4, 3)), Prim, "c.Rows()==2 || c.Rows()==3");
    EXPECT_RAISE(Q(PLANE, Array(2, 3)), Prim, "c.Cols() == 2");
    EXPECT_RAISE(Q(PLANE, Array(3, 2)), Prim, "c.Cols() == 3");
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

TEST(Quaternion, OfNoAxesIsHalfOfTheIdentity)
{
    const utf_Quaternion<double> q({0, 0, 0}, {0, 0, 0}, {0, 0, 0});
    EXPECT_THAT(std::vector(q.components(), q.components() + 4), testing::ElementsAre(0, 0, 0, 0.5));
}

TEST(Quaternion, PrintsItselfIndented)
{
    const double half[] = {0, 0, 1, 0};
    std::ostringstream text;
    utf_Quaternion<double>(SPACE, half).Print(text, 2);
    utf_Quaternion<double>(PLANE, half + 1).Print(text, -1); // (0, 1)
    EXPECT_EQ(text.str(),
              "  Qauternion:\n  0 0 1 0\n  As Vector:\n  0 0 3.14159\n"
              "  As transformation matrix:\n  -1 0 0\n  0 -1 0\n  0 0 1\n"
              "Qauternion:\n0 1\nAs Vector:\n0 0 0\nAs transformation matrix:\n1 0 0\n0 1 0\n0 0 1\n");
}

/// As someone would store quaternions who has a type id to give.
template <class T>
struct Stored
{
    utf_Quaternion<T> quaternion;

    static unsigned TypeId() { return 0x7F0001; }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (writer.AnnounceValue(TypeId()))
            quaternion.DBWrite(writer);
    }
};

template <class T>
void ExpectReadBack(const cls_AdapterBase* adapter, const utf_Quaternion<T>& q)
{
    MemoryStore store;
    const int number = store.Write(Stored<T>{q});
    const auto created = adapter->Create(*store.Reader(number));
    const auto* back = cls_PersistentCast<utf_Quaternion<T>>(created.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(QuaternionOf<T>::Components(*back), QuaternionOf<T>::Components(q));
    const auto changed = [&](int type) {
        store.LastPart(number).Set("type", cls_AttributeType::INT, type);
        return adapter->Create(*store.Reader(number));
    };
    EXPECT_RAISE(changed(13 - int(q.type())), nex_PrimException, "Wrong number of quaternion components");
    EXPECT_RAISE(changed(9), nex_PrimException, "Unknown quaternion type");
}

TEST(Quaternion, ComesBackThroughItsAdapters)
{
    ExpectReadBack(utf_QuaternionDoubleAdapter::Instance(), QuaternionOf<double>::About(X, 1));
    ExpectReadBack(utf_QuaternionFloatAdapter::Instance(), QuaternionOf<float>::Make(PLANE, {0.6, 0.8}));
}
}
