// The functions for single primitives: travel along a direction to the first contact, and its place.
#include <testing/DirDistOracle.h>
#include <testing/SetDraw.h>

#include <gsl_DirectionalDist.h>
#include <gsl_Segment.h>

namespace
{
using namespace testing_sets;
constexpr double L = 1e-6;
const gsl_Vector UP(0, 0, 1);
const bool OF_A[2] = {true, false};
const bool OF_B[2] = {false, true};

/// The travel, with 100 for none; the outputs must be left alone then.
double TriTri(const Triangle& a, const Triangle& b, const bool* flags = nullptr, double tol = L,
              const gsl_Vector& dir = UP)
{
    double dist = 77;
    gsl_Point contact = geometry::UNTOUCHED;
    const bool found = gsl_TriTriMinDirectionalDist(dir, Of(a[0]), Of(a[1]), Of(a[2]), Of(b[0]), Of(b[1]),
                                                    Of(b[2]), flags, tol, &contact, dist);
    EXPECT_TRUE(found || (dist == 77 && Same(contact, geometry::UNTOUCHED)));
    EXPECT_TRUE(!found || Of(b).ContainsProjectedPoint(contact) || tol > L);
    return found ? dist : 100;
}

const Triangle FLOOR{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}};
const Triangle LID{{{0, 0, 3}, {4, 0, 3}, {0, 4, 3}}};
const Triangle SPIKE_UP{{{1, 1, 1}, {1, 1, -2}, {1.5, 1, -2}}};   // under the lid
const Triangle SPIKE_DOWN{{{1, 1, 2}, {1, 1.1, 5}, {1.5, 1, 5}}}; // over the floor
// Edges across each other, no corner over the other triangle: both flags, or nothing.
const Triangle RIDGE{{{-1, 1, 0}, {5, 1, 0}, {2, 1.5, -9}}};
const Triangle BEAM{{{1, -1, 2}, {1, 5, 2}, {1.5, 2, 9}}};
const Triangle LINE{{{0, 0, 3}, {1, 1, 3}, {2, 2, 3}}};

TEST(DirectionalDist, Triangles)
{
    const bool none[2] = {false, false};
    const struct
    {
        Triangle a, b;
        double travel;
        const bool* flags = nullptr; // whose corners are tested
        double tol = L;
    } rows[] = {{FLOOR, LID, 3},
                {LID, FLOOR, 100},
                {FLOOR, LINE, 100},
                {LINE, FLOOR, 100},
                {SPIKE_UP, LID, 2},
                {SPIKE_UP, LID, 2, OF_A},
                {SPIKE_UP, LID, 100, OF_B},
                {FLOOR, SPIKE_DOWN, 2},
                {FLOOR, SPIKE_DOWN, 2, OF_B},
                {FLOOR, SPIKE_DOWN, 100, OF_A},
                {RIDGE, BEAM, 2},
                {RIDGE, BEAM, 100, OF_A},
                {RIDGE, BEAM, 100, OF_B},
                {FLOOR, LID, 100, none},
                {FLOOR, Moved(LID, {4.4, 0, 0}), 100},
                {FLOOR, Moved(LID, {4.4, 0, 0}), 3, nullptr, 0.5},
                {FLOOR, Moved(LID, {0, 0, -3.3}), 100},
                {FLOOR, Moved(LID, {0, 0, -3.3}), 0, nullptr, 0.5}};
    for (const auto& [a, b, travel, flags, tol] : rows)
        EXPECT_DOUBLE_EQ(TriTri(a, b, flags, tol), travel) << "row " << &a - &rows[0].a;
    EXPECT_DOUBLE_EQ(TriTri(FLOOR, LID, nullptr, L, UP * 1e-3), 3);
    EXPECT_EQ(TriTri(FLOOR, LID, nullptr, L, UP * 0), 100);
}

TEST(DirectionalDist, SegmentsOffThePlane)
{
    const gsl_Point a[2] = {{0, 0, 0}, {4, 0, 2}};
    double dist = 77;
    EXPECT_FALSE(gsl_InPlaneSegSegMinDirectionalDist(UP, a[0], a[1], {1, 0.1, 3}, {3, 0.1, 3}, nullptr, L,
                                                     nullptr, dist));
    EXPECT_EQ(dist, 77);
}

// In the plane, the triangles' answer is that of thin prisms over them; a segment is a flat triangle.
TEST(DirectionalDist, InOnePlaneAgainstTheOracle)
{
    GeometryDraw draw(62);
    const testing_oracle::Frame frame({0, 0, 1});
    const gsl_Plane plane({0, 0, 0}, {0, 1, 0});
    int met = 0;
    for (int i = 0; i < 6000; ++i)
    {
        Set t = Soup(draw, 2, 0, 1);
        gsl_Point corner[2][3];
        for (std::size_t k = 0; k < 6; ++k)
        {
            Point& p = t[k / 3][k % 3];
            p = {p[0], 0, p[2] + (k > 2 ? 1.5 : 0.0)};
            p = k == 2 + 3 * (k / 3) && i % 3 > static_cast<int>(k / 3) ? t[k / 3][1] : p;
            corner[k / 3][k % 3] = Of(p);
        }
        const auto& [a, b] = corner;
        const auto exact = testing_oracle::MeetingInterval(frame, t[0], t[1], 0, 0, 1e-15L);
        const int axis = i % 2 == 0 ? 1 : -1; // the one to leave out, or none said
        double dist = -1;
        gsl_Point at;
        const bool found =
            i % 3 == 0 ? gsl_InPlaneTriTriMinDirectionalDist(a, b, UP, axis, &at, dist)
            : i % 3 == 1
                ? gsl_InPlaneLinTriMinDirectionalDist(a, b, plane, UP, axis, &at, dist)
                : gsl_InPlaneSegSegMinDirectionalDist(UP, a[0], a[1], b[0], b[1], nullptr, L, &at, dist);
        ASSERT_EQ(found, exact.meets && exact.last >= 0) << i;
        ASSERT_NEAR(dist, found ? std::max(static_cast<double>(exact.first), 0.0) : -1, 1e-9) << i;
        // The place is on b.
        ASSERT_TRUE(!found ||
                    (i % 3 == 2 ? gsl_Segment(b[0], b[1]).GetDistance(at) < L : Of(t[1]).Contains(at)))
            << i;
        met += found;
        dist = 77; // across the plane
        ASSERT_FALSE(gsl_InPlaneTriTriMinDirectionalDist(a, b, {0, 1, 0}, axis, nullptr, dist) || dist != 77);
    }
    EXPECT_GT(met, 1000);
}
}
