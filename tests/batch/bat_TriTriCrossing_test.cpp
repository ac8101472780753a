#include <algorithm>
#include <array>
#include <bat_TriTriCrossing.h>
#include <bat_TriTriTravel.h>
#include <cmath>
#include <gsl_Triangle.h>
#include <testing/DirDistOracle.h>
#include <testing/GeometryTesting.h>

namespace
{
using Nine = std::array<double, 9>;

constexpr double TOLERANCE = 1e-6;

// A big one in the plane z = 0 about the origin.
constexpr Nine FLOOR = {-10, -10, 0, 10, -10, 0, 0, 10, 0};

Nine Moved(Nine triangle, double x, double y, double z)
{
    for (std::size_t k = 0; k < 9; ++k)
        triangle[k] += k % 3 == 0 ? x : k % 3 == 1 ? y : z;
    return triangle;
}

// An upright one, whose lower corner is at the origin and which spreads upwards.
constexpr Nine TIP_DOWN = {0, 0, 0, -1, 0, 2, 1, 0, 2};
constexpr Nine CORNER = {0, 0, 0, 4, 0, 0, 0, 4, 0};

// In every order of corners and of the two.
TEST(Crossing, DepthsOfKnownPairs)
{
    const struct
    {
        const char* what;
        Nine a, b;
        double depth;
    } rows[] = {{"a tip on the floor", TIP_DOWN, FLOOR, 0.0},
                {"a tip half the tolerance deep", Moved(TIP_DOWN, 0, 0, -5e-7), FLOOR, 5e-7},
                {"a tip at the floor's edge", Moved(TIP_DOWN, 0, -10, -1), FLOOR, 0.0},
                {"a tip just inside the floor's edge", Moved(TIP_DOWN, 0, -9.75, -1), FLOOR, 0.25},
                {"one plane, overlapping", Moved(FLOOR, 3, 3, 0), FLOOR, 0.0},
                {"parallel planes", Moved(FLOOR, 1, 1, 0.25), FLOOR, -0.25},
                {"a shared edge", CORNER, Nine{0, 0, 0, 4, 0, 0, 0, 4, 1e-3}, 0.0},
                {"a shared corner, crossing all the same", CORNER, Nine{0, 0, 0, 2, 2, 1, 2, 2, -1},
                 0.94280904158206336},
                {"a sliver through the floor", Nine{0, 0, -3, 1e-7, 0, -3, 0, 0, 3}, FLOOR, 3.0},
                {"far off", Moved(TIP_DOWN, 1048576, 0, 1048575), Moved(FLOOR, 1048576, 0, 1048576), 1.0}};
    for (const auto& row : rows)
        for (const bat_TriTriCrossing& crossing :
             {bat_TriTriCrossing(row.a, row.b), bat_TriTriCrossing(row.b, row.a)})
        {
            EXPECT_NEAR(crossing.Depth(), row.depth, 1e-12) << row.what;
            EXPECT_EQ(crossing.IsBeyond(TOLERANCE), row.depth > TOLERANCE) << row.what;
        }
}

/// Corners on a small grid, so that touching of every kind occurs, or anywhere.
Nine Drawn(GeometryDraw& draw, bool grid)
{
    Nine triangle{};
    for (;;)
    {
        for (double& x : triangle)
            x = grid ? draw.Whole(-1, 1) : draw.Number(-1, 1);
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

// Both by an independent method: whether they cross where they stand, and from when to when one that travels
// meets the other.
void ExpectAgreesWithAnIndependentMethod(bool grid)
{
    GeometryDraw draw(5);
    int meeting = 0;
    int crossing = 0;
    int travelling = 0;
    for (int i = 0; i < 4000; ++i)
    {
        SCOPED_TRACE(i);
        const Nine a = Drawn(draw, grid);
        const Nine b = Drawn(draw, grid);
        const bat_TriTriCrossing pair(a, b);
        const bool meets = Meet(a, b);
        ASSERT_EQ(pair.Depth() > 0.0 || std::abs(pair.Depth()) <= 1e-11, meets);
        meeting += meets;
        if (pair.IsBeyond(1e-3))
        {
            ++crossing;
            // A tiny triangle about the middle meets both.
            const std::array<double, 3> p = pair.Middle();
            const Nine mark = Moved({-1e-7, 0, 0, 1e-7, 1e-7, -1e-7, 0, -1e-7, 1e-7}, p[0], p[1], p[2]);
            ASSERT_GT(bat_TriTriCrossing(mark, a).Depth(), -1e-10);
            ASSERT_GT(bat_TriTriCrossing(mark, b).Depth(), -1e-10);
        }

        const gsl_Vector u = draw.Unit();
        const Nine start = Moved(a, -3 * u.X(), -3 * u.Y(), -3 * u.Z());
        const bat_TriTriTravel travel(start, b, u);
        const auto expected = testing_oracle::MeetingInterval(testing_oracle::Frame({u.X(), u.Y(), u.Z()}),
                                                              AsOracle(start), AsOracle(b), 0, 0, 1e-14L);
        const double first = static_cast<double>(expected.first);
        const double last = static_cast<double>(expected.last);
        const auto grown = travel.Grown(1e-9);
        const auto shrunk = travel.Shrunk(1e-9);
        ASSERT_TRUE(!shrunk ||
                    (expected.meets && shrunk->first >= first - 1e-9 && shrunk->last <= last + 1e-9));
        ASSERT_TRUE(!expected.meets || (grown && grown->first <= first + 1e-9 && grown->last >= last - 1e-9));
        travelling += expected.meets;
        if (grid || !expected.meets || last - first < 1e-3)
            continue;
        const auto exact = travel.Grown(0.0);
        ASSERT_TRUE(exact && std::abs(exact->first - first) < 1e-9 && std::abs(exact->last - last) < 1e-9);
    }
    EXPECT_TRUE(crossing > 50 && meeting < 3500 && travelling > 300 && travelling < 3900)
        << crossing << " " << meeting << " " << travelling;
    EXPECT_GE(meeting, crossing + (grid ? 500 : 0)) << "many only touch on a grid";
}

TEST(Crossing, AgreesWithAnIndependentMethod)
{
    ExpectAgreesWithAnIndependentMethod(false);
    ExpectAgreesWithAnIndependentMethod(true);
}
}
