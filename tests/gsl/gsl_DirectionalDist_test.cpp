// The functions for single primitives: travel along a direction to the first contact, and its place.
#include <testing/DirDistOracle.h>
#include <testing/GeometryTesting.h>
#include <testing/SetSearch.h>

#include <gsl_DirectionalDist.h>

namespace
{
using testing_sets::Of;
using testing_sets::Point;
using testing_sets::Triangle;
constexpr double L = 1e-6;
const gsl_Vector UP(0, 0, 1);
const gsl_Point UNTOUCHED(71, 72, 73);

bool TriTri(const Triangle& a, const Triangle& b, const bool* flags, double tol, gsl_Point* contact,
            double& dist, const gsl_Vector& dir = UP)
{
    return gsl_TriTriMinDirectionalDist(dir, Of(a[0]), Of(a[1]), Of(a[2]), Of(b[0]), Of(b[1]), Of(b[2]),
                                        flags, tol, contact, dist);
}

const Triangle FLOOR{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}};
const Triangle LID{{{0, 0, 3}, {4, 0, 3}, {0, 4, 3}}};
const Triangle SPIKE_UP{{{1, 1, 1}, {1, 1, -2}, {1.5, 1, -2}}};   // under the lid
const Triangle SPIKE_DOWN{{{1, 1, 2}, {1, 1.1, 5}, {1.5, 1, 5}}}; // over the floor

TEST(DirectionalDist, TrianglesAndTheirPlace)
{
    gsl_Point contact = UNTOUCHED;
    double dist = 77;
    ASSERT_TRUE(TriTri(SPIKE_UP, LID, nullptr, L, &contact, dist));
    EXPECT_DOUBLE_EQ(dist, 2);
    EXPECT_TRUE(Near(contact, gsl_Point(1, 1, 3), 1e-15));
    ASSERT_TRUE(TriTri(FLOOR, SPIKE_DOWN, nullptr, L, &contact, dist, gsl_Vector(0, 0, 1e-3)));
    EXPECT_DOUBLE_EQ(dist, 2);
    EXPECT_TRUE(Near(contact, gsl_Point(1, 1, 2), 1e-15));
    ASSERT_TRUE(TriTri(FLOOR, LID, nullptr, L, nullptr, dist));
    EXPECT_DOUBLE_EQ(dist, 3);
}

TEST(DirectionalDist, RefusalsLeaveTheOutputsAlone)
{
    gsl_Point contact = UNTOUCHED;
    double dist = 77;
    EXPECT_FALSE(TriTri(LID, FLOOR, nullptr, L, &contact, dist));
    EXPECT_FALSE(TriTri(FLOOR, LID, nullptr, L, &contact, dist, gsl_Vector(0, 0, 0)));
    const Triangle line{{{0, 0, 3}, {1, 1, 3}, {2, 2, 3}}};
    EXPECT_FALSE(TriTri(FLOOR, line, nullptr, L, &contact, dist));
    EXPECT_FALSE(TriTri(line, FLOOR, nullptr, L, &contact, dist, gsl_Vector(0, 0, -1)));
    EXPECT_EQ(dist, 77);
    EXPECT_TRUE(Same(contact, UNTOUCHED));
}

TEST(DirectionalDist, FlagsChooseWhoseCornersAreTested)
{
    const bool ofA[2] = {true, false};
    const bool ofB[2] = {false, true};
    const bool none[2] = {false, false};
    double dist = 77;
    EXPECT_TRUE(TriTri(SPIKE_UP, LID, ofA, L, nullptr, dist));
    EXPECT_DOUBLE_EQ(dist, 2);
    EXPECT_FALSE(TriTri(SPIKE_UP, LID, ofB, L, nullptr, dist));
    EXPECT_TRUE(TriTri(FLOOR, SPIKE_DOWN, ofB, L, nullptr, dist));
    EXPECT_FALSE(TriTri(FLOOR, SPIKE_DOWN, ofA, L, nullptr, dist));
    EXPECT_FALSE(TriTri(FLOOR, LID, none, L, nullptr, dist));
    // Edges across each other, no corner over the other triangle: both flags, or nothing.
    const Triangle ridge{{{-1, 1, 0}, {5, 1, 0}, {2, 1.5, -9}}};
    const Triangle beam{{{1, -1, 2}, {1, 5, 2}, {1.5, 2, 9}}};
    EXPECT_TRUE(TriTri(ridge, beam, nullptr, L, nullptr, dist));
    EXPECT_DOUBLE_EQ(dist, 2);
    EXPECT_FALSE(TriTri(ridge, beam, ofA, L, nullptr, dist));
    EXPECT_FALSE(TriTri(ridge, beam, ofB, L, nullptr, dist));
}

TEST(DirectionalDist, ToleranceIsTheCallers)
{
    const Triangle beside{{{4.4, 0, 3}, {9, 0, 3}, {9, 4, 3}}};
    double dist = 77;
    EXPECT_FALSE(TriTri(FLOOR, beside, nullptr, L, nullptr, dist));
    EXPECT_TRUE(TriTri(FLOOR, beside, nullptr, 0.5, nullptr, dist));
    EXPECT_DOUBLE_EQ(dist, 3);
    const Triangle past{{{0, 0, -0.3}, {4, 0, -0.3}, {0, 4, -0.3}}};
    EXPECT_FALSE(TriTri(FLOOR, past, nullptr, L, nullptr, dist));
    EXPECT_TRUE(TriTri(FLOOR, past, nullptr, 0.5, nullptr, dist));
    EXPECT_EQ(dist, 0);
}

struct SegmentRow
{
    const char* what;
    Point a1, a2, b1, b2; // in the plane y = 0, a travels along +z
    double dist;          // negative: none
    Point contact;
};

class SegmentPair : public testing::TestWithParam<SegmentRow>
{};

TEST_P(SegmentPair, TravelsAsInTheTable)
{
    const SegmentRow& row = GetParam();
    gsl_Point contact = UNTOUCHED;
    double dist = 77;
    const bool found = gsl_InPlaneSegSegMinDirectionalDist({0, 0, 9}, Of(row.a1), Of(row.a2), Of(row.b1),
                                                           Of(row.b2), nullptr, L, &contact, dist);
    ASSERT_EQ(found, row.dist >= 0) << row.what;
    EXPECT_NEAR(dist, found ? row.dist : 77, 1e-12) << row.what;
    EXPECT_TRUE(Near(contact, found ? Of(row.contact) : UNTOUCHED, 1e-12)) << row.what;
    EXPECT_EQ(gsl_InPlaneSegSegMinDirectionalDist({0, 0, 1}, Of(row.a2), Of(row.a1), Of(row.b2), Of(row.b1),
                                                  nullptr, L, nullptr, dist),
              found)
        << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SegmentPair,
    testing::Values(
        SegmentRow{"level on level", {0, 0, 0}, {4, 0, 0}, {1, 0, 3}, {3, 0, 3}, 3, {1, 0, 3}},
        SegmentRow{"end of a on b", {1, 0, 0}, {1, 0, -2}, {0, 0, 2}, {4, 0, 4}, 2.5, {1, 0, 2.5}},
        SegmentRow{"end of b on a", {0, 0, 0}, {4, 0, 2}, {2, 0, 4}, {2, 0, 9}, 3, {2, 0, 4}},
        SegmentRow{"upright behind each other", {1, 0, 0}, {1, 0, 1}, {1, 0, 5}, {1, 0, 9}, 4, {1, 0, 5}},
        SegmentRow{"crossing", {0, 0, 0}, {4, 0, 4}, {0, 0, 4}, {4, 0, 0}, 0, {2, 0, 2}},
        SegmentRow{"touching", {0, 0, 0}, {4, 0, 0}, {4, 0, 0}, {9, 0, 5}, 0, {4, 0, 0}},
        SegmentRow{"beside", {0, 0, 0}, {4, 0, 0}, {5, 0, 3}, {9, 0, 3}, -1, {}},
        SegmentRow{"behind", {0, 0, 3}, {4, 0, 3}, {0, 0, 0}, {4, 0, 0}, -1, {}},
        SegmentRow{"off the plane", {0, 0, 0}, {4, 0, 0}, {1, 0.1, 3}, {3, 0.1, 3}, -1, {}},
        SegmentRow{"a point on a segment", {1, 0, 0}, {1, 0, 0}, {0, 0, 2}, {4, 0, 2}, 2, {1, 0, 2}},
        SegmentRow{"a segment on a point", {0, 0, 0}, {4, 0, 0}, {1, 0, 2}, {1, 0, 2}, 2, {1, 0, 2}}));

TEST(DirectionalDist, SegmentFlagsAndRefusals)
{
    const gsl_Point a[2] = {{0, 0, 0}, {4, 0, 2}};
    const gsl_Point b[2] = {{2, 0, 4}, {2, 0, 9}};
    const bool ofA[2] = {true, false};
    const bool ofB[2] = {false, true};
    double dist = 77;
    EXPECT_FALSE(gsl_InPlaneSegSegMinDirectionalDist(UP, a[0], a[1], b[0], b[1], ofA, L, nullptr, dist));
    EXPECT_FALSE(
        gsl_InPlaneSegSegMinDirectionalDist({0, 0, 0}, a[0], a[1], b[0], b[1], nullptr, L, nullptr, dist));
    EXPECT_EQ(dist, 77);
    EXPECT_TRUE(gsl_InPlaneSegSegMinDirectionalDist(UP, a[0], a[1], b[0], b[1], ofB, L, nullptr, dist));
    EXPECT_DOUBLE_EQ(dist, 3);
}

const gsl_Point TRI[3] = {{0, 0, 4}, {4, 0, 4}, {2, 0, 8}};
const gsl_Plane PLANE(gsl_Point(0, 0, 0), gsl_Vector(0, 1, 0));

TEST(DirectionalDist, SegmentAgainstATriangle)
{
    gsl_Point contact = UNTOUCHED;
    double dist = 77;
    const gsl_Point below[2] = {{1, 0, 0}, {3, 0, 1}};
    for (const int axis : {-1, 1, 5})
    {
        ASSERT_TRUE(gsl_InPlaneLinTriMinDirectionalDist(below, TRI, PLANE, UP, axis, &contact, dist)) << axis;
        EXPECT_DOUBLE_EQ(dist, 3);
        EXPECT_TRUE(Near(contact, gsl_Point(3, 0, 4), 1e-15));
    }
    const gsl_Point inside[2] = {{2, 0, 5}, {2, 0, 6}};
    ASSERT_TRUE(gsl_InPlaneLinTriMinDirectionalDist(inside, TRI, PLANE, UP, -1, &contact, dist));
    EXPECT_EQ(dist, 0);
    EXPECT_TRUE(Same(contact, inside[0]));
    const gsl_Point through[2] = {{-1, 0, 5}, {5, 0, 5}};
    ASSERT_TRUE(gsl_InPlaneLinTriMinDirectionalDist(through, TRI, PLANE, UP, -1, &contact, dist));
    EXPECT_EQ(dist, 0);
    dist = 77;
    contact = UNTOUCHED;
    const gsl_Point above[2] = {{1, 0, 9}, {3, 0, 9}};
    EXPECT_FALSE(gsl_InPlaneLinTriMinDirectionalDist(above, TRI, PLANE, UP, -1, &contact, dist));
    EXPECT_FALSE(gsl_InPlaneLinTriMinDirectionalDist(below, TRI, PLANE, {0, 1, 0}, -1, &contact, dist));
    EXPECT_FALSE(gsl_InPlaneLinTriMinDirectionalDist(below, TRI, gsl_Plane(), UP, -1, &contact, dist));
    EXPECT_EQ(dist, 77);
    EXPECT_TRUE(Same(contact, UNTOUCHED));
}

TEST(DirectionalDist, TrianglesInOnePlane)
{
    gsl_Point contact = UNTOUCHED;
    double dist = 77;
    const gsl_Point below[3] = {{1, 0, 0}, {3, 0, 0}, {2, 0, 1}};
    ASSERT_TRUE(gsl_InPlaneTriTriMinDirectionalDist(below, TRI, UP, -1, &contact, dist));
    EXPECT_DOUBLE_EQ(dist, 3);
    EXPECT_TRUE(Near(contact, gsl_Point(2, 0, 4), 1e-15));
    const gsl_Point within[3] = {{1.8, 0, 5}, {2.2, 0, 5}, {2, 0, 5.5}};
    EXPECT_TRUE(gsl_InPlaneTriTriMinDirectionalDist(within, TRI, UP, 1, &contact, dist));
    EXPECT_EQ(dist, 0);
    EXPECT_TRUE(gsl_InPlaneTriTriMinDirectionalDist(TRI, within, UP, 1, &contact, dist));
    EXPECT_EQ(dist, 0);
    // A star: no corner of either in the other.
    const gsl_Point star[3] = {{0, 0, 6.5}, {4, 0, 6.5}, {2, 0, 3}};
    EXPECT_TRUE(gsl_InPlaneTriTriMinDirectionalDist(star, TRI, UP, -1, nullptr, dist));
    EXPECT_EQ(dist, 0);
    dist = 77;
    const gsl_Point beside[3] = {{9, 0, 0}, {11, 0, 0}, {10, 0, 1}};
    EXPECT_FALSE(gsl_InPlaneTriTriMinDirectionalDist(beside, TRI, UP, -1, &contact, dist));
    EXPECT_FALSE(gsl_InPlaneTriTriMinDirectionalDist(TRI, below, UP, -1, &contact, dist));
    EXPECT_FALSE(gsl_InPlaneTriTriMinDirectionalDist(below, TRI, {0, 1, 0}, -1, &contact, dist));
    EXPECT_EQ(dist, 77);
}

// In the plane, the triangles' answer is that of thin prisms over them.
TEST(DirectionalDist, TrianglesInOnePlaneAgainstTheOracle)
{
    GeometryDraw draw(62);
    int met = 0;
    for (int i = 0; i < 3000; ++i)
    {
        Triangle t[2];
        gsl_Point corner[2][3];
        for (std::size_t k = 0; k < 2; ++k)
            for (std::size_t c = 0; c < 3; ++c)
            {
                t[k][c] = {draw.Number(-1, 1), 0, draw.Number(-1, 1) + (k == 1 ? 1.5 : 0.0)};
                corner[k][c] = Of(t[k][c]);
            }
        const auto exact =
            testing_oracle::MeetingInterval(testing_oracle::Frame({0, 0, 1}), t[0], t[1], 0, 0, 1e-15L);
        double dist = -1;
        const bool found = gsl_InPlaneTriTriMinDirectionalDist(corner[0], corner[1], UP, -1, nullptr, dist);
        ASSERT_EQ(found, exact.meets && exact.last >= 0) << i;
        if (!found)
            continue;
        ++met;
        ASSERT_NEAR(dist, std::max(static_cast<double>(exact.first), 0.0), 1e-9) << i;
    }
    EXPECT_GT(met, 500);
}
}
