#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <numbers>
#include <testing/GeometryTesting.h>
#include <testing/PrincipalError.h>
#include <utf_Routines.h>

extern "C"
{
    double utf_ApartFromC(const double* tensor);
    void utf_BreakFromC(double* q);
    void utf_apart_from_fortran_(const double* tensor, double* apart);
}

namespace
{
using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::IsNan;
using testing::Pointwise;

const double HALF = std::numbers::sqrt2 / 2;
using Tensor = std::array<double, 6>;

struct Principal
{
    std::array<double, 3> values;
    std::array<double, 9> directions; ///< direction k in row k

    gsl_Vector Direction(std::size_t k) const
    {
        return {directions[k], directions[k + 3], directions[k + 6]};
    }
};

Principal Of(const double* s, int mode = 1, int ndi = 3, int nshr = 3)
{
    Principal result;
    utf_sprind_(s, result.values.data(), result.directions.data(), &mode, &ndi, &nshr);
    return result;
}

TEST(Routines, GiveAFramesQuaternionWithTheScalarFirstToo)
{
    const double aboutXY[] = {0, -1, 0, -1, 0, 0, 0, 0, -1};  // where x and y tie, so that the sign is chosen
    const double inverted[] = {-1, 0, 0, 0, -1, 0, 0, 0, -1}; // where all tie
    double q[4], leftHanded[] = {0, 1, 0, 1, 0, 0, 0, 0, 1};
    const int odd = -1, even = 2;
    utf_calquat_(q, inverted, &even);
    EXPECT_THAT(q, Pointwise(DoubleNear(1e-15), {0.0, 0.0, HALF, 0.0}));
    utf_calquat_(q, aboutXY, &odd);
    EXPECT_THAT(q, Pointwise(DoubleNear(1e-15), {0.0, -HALF, HALF, 0.0}));
    utf_getquat_(q, leftHanded);
    EXPECT_THAT(leftHanded, ElementsAre(0, 1, 0, -1, 0, 0, 0, 0, 1)); // the caller's own array
}

TEST(Routines, WriteTheirErrorToTheStandardOutputForACallerInCToo)
{
    double q[4];
    testing::internal::CaptureStdout();
    utf_BreakFromC(q);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "SYSTEM ERROR 1 IN CALQUAT\n");
}

/// Of four kinds: of rank one, with entries that vanish beside others, the same very large or small, and with
/// values that are close.
Tensor Draw(GeometryDraw& draw, int kind)
{
    const gsl_Vector n = draw.Unit();
    Tensor s = {n.X() * n.X(), n.Y() * n.Y(), n.Z() * n.Z(), n.X() * n.Y(), n.X() * n.Z(), n.Y() * n.Z()};
    const double apart = std::pow(10, draw.Whole(-12, 2)), scale = std::pow(10, draw.Whole(-290, 290));
    for (std::size_t k = 0; k < 6 && kind > 0; ++k)
        s[k] = kind == 3 ? (k < 3) + apart * draw.Number(-1, 1)
                         : (kind == 2 ? scale : 1) * draw.Number(-1, 1) * std::pow(10, draw.Whole(-18, 0));
    return s;
}

TEST(Routines, PrincipalValuesAndDirectionsAreRightToLastPlacesHoweverCloseTheyAre)
{
    GeometryDraw draw(11);
    for (int i = 0; i < 8000; ++i)
    {
        const Tensor s = Draw(draw, i % 4);
        double largest = 0;
        for (const double component : s)
            largest = std::max(largest, std::abs(component));
        const Principal found = Of(s.data());
        for (std::size_t k = 0; k < 3; ++k)
        {
            const gsl_Vector v = found.Direction(k);
            const gsl_Vector turned(s[0] * v.X() + s[3] * v.Y() + s[4] * v.Z(),
                                    s[3] * v.X() + s[1] * v.Y() + s[5] * v.Z(),
                                    s[4] * v.X() + s[5] * v.Y() + s[2] * v.Z());
            ASSERT_TRUE(Near(turned * (1 / largest), v * (found.values[k] / largest), 4e-15)) << i;
            ASSERT_NEAR(v.DotProduct(found.Direction((k + 1) % 3)), 0, 2e-15) << i;
            ASSERT_NEAR(v.DotProduct(v), 1, 4e-15) << i;
            ASSERT_GT(std::max({v.X(), v.Y(), v.Z()}), -std::min({v.X(), v.Y(), v.Z()}) * (1 - 1e-15)) << i;
        }
        // An iterative solver that first makes the tensor tridiagonal is off by about 12 among so many.
        ASSERT_LT(i % 4 == 3 ? PrincipalError(s.data(), found.values.data()) : 0, 6) << i;
    }
}

TEST(Routines, PrincipalValuesTakeWhatIsThereInTheirNaturalOrder)
{
    const double s[] = {3, 7, 5, 4, 0, 0}, notFinite[] = {1, 2, 3, 0, INFINITY, 0}, root = std::sqrt(29);
    EXPECT_THAT(Of(s, 1, 3, 0).values, ElementsAre(3, 7, 5)); // the shears are not read
    EXPECT_THAT(Of(s, 1, 2, 1).values, Pointwise(DoubleNear(1e-14), {5 - root, 5 + root, 0.0}));
    EXPECT_THAT(Of(s, 2).values, Pointwise(DoubleNear(1e-14), {5 - 4 * HALF, 5 + 4 * HALF, 5.0}));
    EXPECT_THAT(Of(notFinite).values, Each(IsNan()));
    EXPECT_THAT(Of(s + 3, 1, 0, 1).directions, // of equal components the first one is positive
                Pointwise(DoubleNear(1e-15), {HALF, HALF, 0.0, -HALF, HALF, 0.0, 0.0, 0.0, 1.0}));
}

TEST(Routines, PrincipalValuesAndQuaternionMakeTheTensorAgain)
{
    GeometryDraw draw(13);
    for (int i = 0; i < 3000; ++i)
    {
        Tensor s;
        std::generate(s.begin(), s.end(), [&] { return draw.Number(-100, 100); });
        ASSERT_LT(utf_ApartFromC(s.data()), 3e-13);
#ifdef ORVEX_HAVE_FORTRAN
        double apart = 1;
        utf_apart_from_fortran_(s.data(), &apart);
        ASSERT_LT(apart, 3e-13);
#endif
    }
}

// Only the two values in the plane are sorted, so that (z, w) is a unit quaternion that makes the tensor
// again.
TEST(Routines, PackedTensorsStayInThePlane)
{
    const struct
    {
        const char* what;
        Tensor tensor;
        int elementType, tensorType, ndi, nshr;
        std::array<double, 3> values;
    } rows[] = {{"large normal value", {0, 0, 9, 1}, 0, 7, 3, 1, {1, -1, 9}},
                {"no shear, to be sorted", {1, 2}, 0, 9, 2, 0, {2, 1, 0}},
                {"one value and one shear, halved", {3, 4}, 21, 9, 1, 1, {4, -1, 0}},
                {"halved by the thousands", {3, 0, 4}, 91999, 7, 2, 1, {4, -1, 0}},
                {"not halved", {3, 0, 2}, 26001, 7, 2, 1, {4, -1, 0}}};
    for (const auto& row : rows)
    {
        std::array<double, 7> out;
        utf_calprinquat_(row.tensor.data(), out.data(), &row.elementType, &row.tensorType, &row.ndi,
                         &row.nshr);
        const double s = 2 * out[3] * out[4], c = 1 - 2 * out[3] * out[3];
        EXPECT_THAT(std::vector(&out[0], &out[3]), Pointwise(DoubleNear(1e-14), row.values)) << row.what;
        EXPECT_NEAR(out[3] * out[3] + out[4] * out[4], 1, 1e-14) << row.what;
        EXPECT_NEAR(c * c * out[0] + s * s * out[1], row.tensor[0], 1e-14) << row.what;
    }
}

TEST(Routines, ReadTwoValuesOfAPlanarQuaternionAsItsLastComponents)
{
    const double s[] = {1, 2, 3, 4, 5, 6}, halfAboutY[] = {1, 0};
    const int two = 2;
    double t[9];
    utf_quatrot_(s, halfAboutY, t, &two);
    EXPECT_THAT(t, ElementsAre(1, -4, 5, -4, 2, -6, 5, -6, 3));
}
}
