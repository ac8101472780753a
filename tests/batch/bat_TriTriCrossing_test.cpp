#include <algorithm>
#include <array>
#include <bat_TriTriCrossing.h>
#include <bat_TriTriTravel.h>
#include <cmath>
#include <gsl_Triangle.h>
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

// An upright one, whose lower corner is at the origin and which spreads upwards.
constexpr Nine TIP_DOWN = {0, 0, 0, -1, 0, 2, 1, 0, 2};
constexpr Nine CORNER = {0, 0, 0, 4, 0, 0, 0, 4, 0};

// In every order of corners and of the two.
TEST(Crossing, DepthsOfKnownPairs)
{
    struct Row
    {
        const char* what;
        Nine a, b;
        double depth;
    };
    const Row rows[] = {
        {"a tip through the floor", Moved(TIP_DOWN, 0, 0, -1), FLOOR, 1.0},
        {"a tip on the floor", TIP_DOWN, FLOOR, 0.0},
        {"a tip half the tolerance deep", Moved(TIP_DOWN, 0, 0, -5e-7), FLOOR, 5e-7},
        {"a tip twice the tolerance deep", Moved(TIP_DOWN, 0, 0, -2e-6), FLOOR, 2e-6},
        {"a tip at the floor's edge", Moved(TIP_DOWN, 0, -10, -1), FLOOR, 0.0},
        {"a tip just inside the floor's edge", Moved(TIP_DOWN, 0, -9.75, -1), FLOOR, 0.25},
        {"one plane, overlapping", Moved(FLOOR, 3, 3, 0), FLOOR, 0.0},
        {"parallel planes", Moved(FLOOR, 1, 1, 0.25), FLOOR, -0.25},
        {"a shared edge", CORNER, Nine{0, 0, 0, 4, 0, 0, 0, 4, 1e-3}, 0.0},
        {"a shared corner, crossing all the same", CORNER, Nine{0, 0, 0, 2, 2, 1, 2, 2, -1},
         0.94280904158206336},
        {"edge through edge", Nine{-1, 0, -0.25, 1, 0, -0.25, 0, 0, 2}, Nine{0, -1, 0, 0, 1, 0, 0, 0, -2},
         0.25},
        {"a sliver through the floor", Nine{0, 0, -3, 1e-7, 0, -3, 0, 0, 3}, FLOOR, 3.0},
        {"far off", Moved(TIP_DOWN, 1048576, 0, 1048575), Moved(FLOOR, 1048576, 0, 1048576), 1.0}};
    for (const Row& row : rows)
        for (int order = 0; order < 12; ++order)
        {
            const bat_TriTriCrossing crossing(Reordered(order < 6 ? row.a : row.b, order % 6),
                                              Reordered(order < 6 ? row.b : row.a, (order + 4) % 6));
            EXPECT_NEAR(crossing.Depth(), row.depth, 1e-12) << row.what << ", order " << order;
            EXPECT_EQ(crossing.IsBeyond(TOLERANCE), row.depth > TOLERANCE) << row.what << ", order " << order;
        }
}

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
        const double* t = triangle.data();
        if (gsl_Triangle(gsl_Point(t), gsl_Point(t + 3), gsl_Point(t + 6)).Area() > 5e-3)
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
        const bat_TriTriCrossing pair(a, b);
        const bool meets = Meet(a, b);
        ASSERT_EQ(pair.Depth() > 0.0 || std::abs(pair.Depth()) <= 1e-11, meets) << "pair " << i;
        meeting += meets;
        if (!pair.IsBeyond(1e-3))
            continue;
        ++crossing;
        // A tiny triangle about the middle meets both.
        const std::array<double, 3> p = pair.Middle();
        const Nine mark = {p[0] - 1e-7, p[1], p[2],        p[0] + 1e-7, p[1] + 1e-7,
                           p[2] - 1e-7, p[0], p[1] - 1e-7, p[2] + 1e-7};
        ASSERT_GT(bat_TriTriCrossing(mark, a).Depth(), -1e-10) << "pair " << i;
        ASSERT_GT(bat_TriTriCrossing(mark, b).Depth(), -1e-10) << "pair " << i;
    }
    EXPECT_GT(crossing, 50);
    EXPECT_GE(meeting, crossing + (GetParam() ? 500 : 0)) << "many only touch on a grid";
    EXPECT_LT(meeting, 3500);
}

TEST_P(CrossingRandom, TheTravelIntervalIsThatOfAnIndependentMethod)
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
        const double first = static_cast<double>(expected.first);
        const double last = static_cast<double>(expected.last);
        const auto grown = travel.Grown(1e-9);
        const auto shrunk = travel.Shrunk(1e-9);
        ASSERT_TRUE(!shrunk ||
                    (expected.meets && shrunk->first >= first - 1e-9 && shrunk->last <= last + 1e-9))
            << "pair " << i;
        ASSERT_TRUE(!expected.meets || (grown && grown->first <= first + 1e-9 && grown->last >= last - 1e-9))
            << "pair " << i;
        meeting += expected.meets;
        if (GetParam() || !expected.meets || last - first < 1e-3)
            continue;
        const auto exact = travel.Grown(0.0);
        ASSERT_TRUE(exact && std::abs(exact->first - first) < 1e-9 && std::abs(exact->last - last) < 1e-9)
            << "pair " << i;
    }
    EXPECT_GT(meeting, 300);
    EXPECT_LT(meeting, 2900);
}

INSTANTIATE_TEST_SUITE_P(Corners, CrossingRandom, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& param) {
                             return param.param ? "Grid" : "Anywhere";
                         });
}
