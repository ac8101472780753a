#include <algorithm>
#include <array>
#include <bat_TriTriCrossing.h>
#include <bat_TriTriTravel.h>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <testing/DirDistOracle.h>

namespace
{
using Nine = std::array<double, 9>;

constexpr double TOLERANCE = 1e-6;

// A big one in the plane z = 0 about the origin.
constexpr Nine FLOOR = {-10, -10, 0, 10, -10, 0, 0, 10, 0};

Nine Moved(Nine triangle, double x, double y, double z)
{
    for (std::size_t k = 0; k < 9; k += 3)
    {
        triangle[k] += x;
        triangle[k + 1] += y;
        triangle[k + 2] += z;
    }
    return triangle;
}

/// Corners in another order, 0 to 5.
Nine Reordered(const Nine& triangle, int order)
{
    constexpr int ORDERS[6][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {2, 1, 0}, {1, 0, 2}};
    Nine out{};
    for (std::size_t c = 0; c < 3; ++c)
        for (std::size_t k = 0; k < 3; ++k)
            out[3 * c + k] = triangle[3 * static_cast<std::size_t>(ORDERS[order][c]) + k];
    return out;
}

struct CrossingRow
{
    const char* what;
    Nine a;
    Nine b;
    double depth; // below -1: any negative one
    bool crosses;

    friend void PrintTo(const CrossingRow& row, std::ostream* out) { *out << row.what; }
};

constexpr double APART = -2.0;

class Crossing : public testing::TestWithParam<CrossingRow>
{};

TEST_P(Crossing, MatchesTableInEveryOrderOfCornersAndSides)
{
    const CrossingRow& row = GetParam();
    for (int order = 0; order < 6; ++order)
        for (const bool swapped : {false, true})
        {
            const Nine a = Reordered(swapped ? row.b : row.a, order);
            const Nine b = Reordered(swapped ? row.a : row.b, (order + 4) % 6);
            const bat_TriTriCrossing crossing(a, b);
            EXPECT_EQ(crossing.IsBeyond(TOLERANCE), row.crosses) << "order " << order;
            if (row.depth == APART)
                EXPECT_LT(crossing.Depth(), 0.0) << "order " << order;
            else
                EXPECT_NEAR(crossing.Depth(), row.depth, 1e-12) << "order " << order;
        }
}

// An upright one, whose lower corner is at the origin and which spreads upwards.
constexpr Nine TIP_DOWN = {0, 0, 0, -1, 0, 2, 1, 0, 2};
// An upright one, whose lower edge lies along x.
constexpr Nine EDGE_DOWN = {-1, 0, 0, 1, 0, 0, 0, 0, 2};

INSTANTIATE_TEST_SUITE_P(
    Rows, Crossing,
    testing::Values(
        CrossingRow{"a tip through the floor", Moved(TIP_DOWN, 0, 0, -1), FLOOR, 1.0, true},
        CrossingRow{"a tip on the floor", TIP_DOWN, FLOOR, 0.0, false},
        CrossingRow{"a tip half the tolerance deep", Moved(TIP_DOWN, 0, 0, -5e-7), FLOOR, 5e-7, false},
        CrossingRow{"a tip twice the tolerance deep", Moved(TIP_DOWN, 0, 0, -2e-6), FLOOR, 2e-6, true},
        CrossingRow{"a tip above the floor", Moved(TIP_DOWN, 0, 0, 5e-7), FLOOR, -5e-7, false},
        CrossingRow{"an edge on the floor", EDGE_DOWN, FLOOR, 0.0, false},
        CrossingRow{"an edge below the floor", Moved(EDGE_DOWN, 0, 0, -0.5), FLOOR, 0.5, true},
        CrossingRow{"a tip beside the floor's edge", Moved(TIP_DOWN, 0, -10.5, -1), FLOOR, -0.5, false},
        CrossingRow{"a tip at the floor's edge", Moved(TIP_DOWN, 0, -10, -1), FLOOR, 0.0, false},
        CrossingRow{"a tip just inside the floor's edge", Moved(TIP_DOWN, 0, -9.75, -1), FLOOR, 0.25, true},
        CrossingRow{"half the tolerance inside it", Moved(TIP_DOWN, 0, -10 + 5e-7, -1), FLOOR, 5e-7, false},
        CrossingRow{"the same triangle", FLOOR, FLOOR, 0.0, false},
        CrossingRow{"one plane, overlapping", Moved(FLOOR, 3, 3, 0), FLOOR, 0.0, false},
        CrossingRow{"one plane, apart", Moved(FLOOR, 40, 0, 0), FLOOR, APART, false},
        CrossingRow{"parallel planes", Moved(FLOOR, 1, 1, 0.25), FLOOR, -0.25, false},
        CrossingRow{"a shared edge", Nine{0, 0, 0, 1, 0, 0, 0, 1, 0}, Nine{0, 0, 0, 1, 0, 0, 0, 0, 1}, 0.0,
                    false},
        CrossingRow{"a shared edge, folded back", Nine{0, 0, 0, 1, 0, 0, 0, 1, 0},
                    Nine{0, 0, 0, 1, 0, 0, 0, 1, 1e-3}, 0.0, false},
        CrossingRow{"a shared corner", Nine{0, 0, 0, 1, 0, 0, 0, 1, 0}, Nine{0, 0, 0, -1, 0, 1, 0, -1, 1},
                    0.0, false},
        CrossingRow{"a shared corner, crossing all the same", Nine{0, 0, 0, 4, 0, 0, 0, 4, 0},
                    Nine{0, 0, 0, 2, 2, 1, 2, 2, -1}, 0.94280904158206336, true},
        CrossingRow{"edge over edge, at a distance", Nine{-1, 0, 0.5, 1, 0, 0.5, 0, 0, 2},
                    Nine{0, -1, 0, 0, 1, 0, 0, 0, -2}, -0.5, false},
        CrossingRow{"edge through edge", Nine{-1, 0, -0.25, 1, 0, -0.25, 0, 0, 2},
                    Nine{0, -1, 0, 0, 1, 0, 0, 0, -2}, 0.25, true},
        CrossingRow{"a sliver thinner than the tolerance through the floor",
                    Nine{0, 0, -3, 1e-7, 0, -3, 0, 0, 3}, FLOOR, 3.0, true},
        CrossingRow{"far apart", Moved(TIP_DOWN, 100, 100, 100), FLOOR, APART, false},
        CrossingRow{"far from the origin", Moved(TIP_DOWN, 1048576, 1048576, 1048575),
                    Moved(FLOOR, 1048576, 1048576, 1048576), 1.0, true}));

/// Corners on a small grid, so that touching of every kind occurs, or anywhere.
Nine Drawn(std::mt19937& random, bool grid)
{
    std::uniform_real_distribution<double> anywhere(-1.0, 1.0);
    std::uniform_int_distribution<int> onGrid(-1, 1);
    Nine triangle{};
    for (;;)
    {
        for (double& x : triangle)
            x = grid ? onGrid(random) : anywhere(random);
        const double u[3] = {triangle[3] - triangle[0], triangle[4] - triangle[1], triangle[5] - triangle[2]};
        const double v[3] = {triangle[6] - triangle[0], triangle[7] - triangle[1], triangle[8] - triangle[2]};
        const double n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
        if (n[0] * n[0] + n[1] * n[1] + n[2] * n[2] > 1e-4)
            return triangle;
    }
}

testing_oracle::Triangle AsOracle(const Nine& t)
{
    return {{{t[0], t[1], t[2]}, {t[3], t[4], t[5]}, {t[6], t[7], t[8]}}};
}

/// Whether they share a point where they stand, told by travelling: they meet at travel 0.
bool Meet(const Nine& a, const Nine& b)
{
    const testing_oracle::Frame frame({0.36, 0.48, 0.8});
    const auto interval = testing_oracle::MeetingInterval(frame, AsOracle(a), AsOracle(b), 0, 0, 1e-13L);
    return interval.meets && interval.first <= 1e-12L && interval.last >= -1e-12L;
}

class CrossingRandom : public testing::TestWithParam<bool>
{};

TEST_P(CrossingRandom, AgreesWithAnIndependentMethod)
{
    std::mt19937 random(5);
    int meeting = 0;
    int crossing = 0;
    for (int i = 0; i < 4000; ++i)
    {
        const Nine a = Drawn(random, GetParam());
        const Nine b = Drawn(random, GetParam());
        const double depth = bat_TriTriCrossing(a, b).Depth();
        if (std::abs(depth) > 1e-11)
        {
            ASSERT_EQ(depth > 0.0, Meet(a, b)) << "pair " << i << ", depth " << depth;
        }
        else
        {
            ASSERT_TRUE(Meet(a, b)) << "pair " << i << ", depth " << depth;
        }
        meeting += Meet(a, b);
        crossing += depth > TOLERANCE;
    }
    EXPECT_GT(crossing, 50);
    EXPECT_GE(meeting, crossing + (GetParam() ? 500 : 0)) << "many only touch on a grid";
    EXPECT_LT(meeting, 3500);
}

// The depth is what it says: no shorter shift parts them, and some shift of about that length does.
TEST_P(CrossingRandom, TheDepthIsTheShortestShiftThatPartsThem)
{
    std::mt19937 random(6);
    std::normal_distribution<double> component;
    int crossing = 0;
    for (int i = 0; i < 300; ++i)
    {
        const Nine a = Drawn(random, GetParam());
        const Nine b = Drawn(random, GetParam());
        const double depth = bat_TriTriCrossing(a, b).Depth();
        if (depth < 1e-3)
            continue;
        ++crossing;
        double parted = 1e300;
        for (int j = 0; j < 400; ++j)
        {
            double d[3] = {component(random), component(random), component(random)};
            const double length = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
            for (double& x : d)
                x /= length;
            const Nine shifted = Moved(a, 0.999 * depth * d[0], 0.999 * depth * d[1], 0.999 * depth * d[2]);
            ASSERT_GT(bat_TriTriCrossing(shifted, b).Depth(), 0.0) << "pair " << i;
            ASSERT_TRUE(Meet(shifted, b)) << "pair " << i;
            const auto way = bat_TriTriTravel(a, b, gsl_Vector(d[0], d[1], d[2])).Grown(0.0);
            ASSERT_TRUE(way.has_value());
            parted = std::min(parted, way->last);
        }
        EXPECT_GE(parted, 0.999 * depth);
        EXPECT_LE(parted, 1.5 * depth) << "pair " << i << ": 400 directions come near the best";
    }
    EXPECT_GT(crossing, 10);
}

double DistanceToPlane(const Nine& t, const std::array<double, 3>& p)
{
    const double u[3] = {t[3] - t[0], t[4] - t[1], t[5] - t[2]};
    const double v[3] = {t[6] - t[0], t[7] - t[1], t[8] - t[2]};
    const double n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    return ((p[0] - t[0]) * n[0] + (p[1] - t[1]) * n[1] + (p[2] - t[2]) * n[2]) / length;
}

TEST_P(CrossingRandom, TheMiddleLiesOnBoth)
{
    std::mt19937 random(7);
    int crossing = 0;
    for (int i = 0; i < 4000; ++i)
    {
        const Nine a = Drawn(random, GetParam());
        const Nine b = Drawn(random, GetParam());
        const bat_TriTriCrossing pair(a, b);
        if (!pair.IsBeyond(1e-3))
            continue;
        ++crossing;
        const std::array<double, 3> p = pair.Middle();
        EXPECT_NEAR(DistanceToPlane(a, p), 0.0, 1e-10) << "pair " << i;
        EXPECT_NEAR(DistanceToPlane(b, p), 0.0, 1e-10) << "pair " << i;
        // A tiny triangle about the point meets both, and stops meeting when taken away.
        for (const Nine& t : {a, b})
        {
            const Nine mark = {p[0] - 1e-7, p[1], p[2],        p[0] + 1e-7, p[1] + 1e-7,
                               p[2] - 1e-7, p[0], p[1] - 1e-7, p[2] + 1e-7};
            EXPECT_GT(bat_TriTriCrossing(mark, t).Depth(), -1e-10) << "pair " << i;
        }
    }
    EXPECT_GT(crossing, 50);
}

INSTANTIATE_TEST_SUITE_P(Corners, CrossingRandom, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& param) {
                             return param.param ? "Grid" : "Anywhere";
                         });

class TravelRandom : public testing::TestWithParam<bool>
{};

TEST_P(TravelRandom, TheIntervalIsThatOfAnIndependentMethod)
{
    std::mt19937 random(8);
    std::normal_distribution<double> component;
    int meeting = 0;
    for (int i = 0; i < 3000; ++i)
    {
        const Nine a = Moved(Drawn(random, GetParam()), 0, 0, 4);
        const Nine b = Drawn(random, GetParam());
        const double c[3] = {0.3 * component(random), 0.3 * component(random), -1.0};
        const double length = std::sqrt(c[0] * c[0] + c[1] * c[1] + c[2] * c[2]);
        const gsl_Vector u(c[0] / length, c[1] / length, c[2] / length);
        const bat_TriTriTravel travel(a, b, u);
        const auto expected = testing_oracle::MeetingInterval(testing_oracle::Frame({u.X(), u.Y(), u.Z()}),
                                                              AsOracle(a), AsOracle(b), 0, 0, 1e-14L);
        const auto grown = travel.Grown(1e-9);
        const auto shrunk = travel.Shrunk(1e-9);
        if (shrunk)
        {
            ASSERT_TRUE(expected.meets) << "pair " << i;
            ASSERT_GE(shrunk->first, static_cast<double>(expected.first) - 1e-9) << "pair " << i;
            ASSERT_LE(shrunk->last, static_cast<double>(expected.last) + 1e-9) << "pair " << i;
        }
        if (expected.meets)
        {
            ++meeting;
            ASSERT_TRUE(grown) << "pair " << i;
            ASSERT_LE(grown->first, static_cast<double>(expected.first) + 1e-9) << "pair " << i;
            ASSERT_GE(grown->last, static_cast<double>(expected.last) - 1e-9) << "pair " << i;
        }
        const auto exact = travel.Grown(0.0);
        if (!GetParam() && expected.meets && expected.last - expected.first > 1e-3L)
        {
            ASSERT_TRUE(exact) << "pair " << i;
            ASSERT_NEAR(exact->first, static_cast<double>(expected.first), 1e-9) << "pair " << i;
            ASSERT_NEAR(exact->last, static_cast<double>(expected.last), 1e-9) << "pair " << i;
        }
    }
    EXPECT_GT(meeting, 300);
    EXPECT_LT(meeting, 2900);
}

INSTANTIATE_TEST_SUITE_P(Corners, TravelRandom, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& param) {
                             return param.param ? "Grid" : "Anywhere";
                         });
}
