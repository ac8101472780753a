// The cut of a polygon: n - 2 triangles, all turning as the polygon does, whose areas add up to the
// polygon's. Together that says that they cover it once: a triangle outside would have to be made up for by
// an overlap.

#include <bat_PolygonCutter.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <numbers>
#include <random>
#include <set>

namespace
{
struct Flat
{
    double x, y;
};
using Polygon = std::vector<Flat>;

double Cross(const Flat& a, const Flat& b, const Flat& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Where a flat polygon is laid in space.
struct Frame
{
    std::array<double, 3> u, v, origin;
};

constexpr double SLACK = 1e-9; // what rounding of the corners may do to an area

const Frame FRAMES[] = {
    {{1, 0, 0}, {0, 1, 0}, {0, 0, 0}},
    {{0, 1, 0}, {1, 0, 0}, {0, 0, 5}},
    {{0.6, 0.8, 0}, {-0.48, 0.36, 0.8}, {10, -20, 30}},
    {{1e-200, 0, 0}, {0, 1e-200, 0}, {0, 0, 0}},
    {{1e305, 0, 0}, {0, 1e305, 0}, {0, 0, 1e307}},
};

void ExpectSoundCut(const Polygon& polygon, const Frame& frame)
{
    SCOPED_TRACE(testing::Message() << polygon.size() << " corners in frame " << &frame - FRAMES);
    std::vector<double> corners;
    double whole = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i)
    {
        for (std::size_t k = 0; k < 3; ++k)
            corners.push_back(frame.origin[k] + polygon[i].x * frame.u[k] + polygon[i].y * frame.v[k]);
        whole += i > 1 ? Cross(polygon[0], polygon[i - 1], polygon[i]) : 0;
    }
    ASSERT_GT(whole, 0);
    bat_PolygonCutter cutter;
    const std::vector<bat_PolygonCutter::Triple>& triples = cutter.Cut(corners);
    ASSERT_EQ(triples.size(), polygon.size() - 2);
    double sum = 0;
    std::set<std::size_t> used;
    for (const bat_PolygonCutter::Triple& t : triples)
    {
        const double area = Cross(polygon.at(t[0]), polygon.at(t[1]), polygon.at(t[2]));
        EXPECT_GE(area, -SLACK) << t[0] << " " << t[1] << " " << t[2];
        sum += std::abs(area);
        used.insert(t.begin(), t.end());
    }
    EXPECT_NEAR(sum, whole, 1e-9 * whole + SLACK * static_cast<double>(triples.size()));
    EXPECT_EQ(used.size(), polygon.size());
}

Polygon Comb(int teeth)
{
    Polygon comb = {{-1, 0}, {2.0 * teeth + 2, 0}};
    for (int i = teeth; i >= 0; --i)
        comb.insert(comb.end(), {{2.0 * i + 1, 20}, {2.0 * i, 1}});
    return comb;
}

/// A square with square holes, each joined to its left neighbour by a cut that is walked twice.
Polygon Plate(int holes)
{
    const double length = 4.0 * holes + 4;
    Polygon plate = {{0, 0}, {length, 0}, {length, 4}, {0, 4}, {0, 2}};
    Polygon back = {{0, 2}};
    for (int i = 0; i < holes; ++i)
    {
        const double x = 4.0 * i + 4;
        plate.insert(plate.end(), {{x, 2}, {x, 3}, {x + 1, 3}, {x + 1, 2}});
        back.insert(back.begin(), {{x + 1, 2}, {x + 1, 1}, {x, 1}, {x, 2}});
    }
    plate.insert(plate.end(), back.begin() + 1, back.end());
    return plate;
}

TEST(PolygonCutter, CutsFromEveryFirstCorner)
{
    for (Polygon polygon :
         {Polygon{{0, 0}, {2, -1}, {0, 3}, {-2, -1}},
          {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}, {3, 2}, {2, 2}, {1, 2}, {1, 1}, {0, 1}}, // in a row
          {{0, 0}, {3, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 1}, {1, 3}, {0, 3}, {0, 3}},         // twice
          {{0, 0}, {3, 0}, {3, 1}, {5, 1}, {3, 1}, {1, 1}, {1, 3}, {0, 3}}, // a spike out and back
          {{0, 0}, {4, 0}, {2, 2}, {4, 4}, {0, 4}, {2, 2}},                 // touches itself in a point
          Comb(30),
          Plate(12)})
    {
        const std::size_t step = std::max<std::size_t>(1, polygon.size() / 12);
        for (std::size_t first = 0; first < polygon.size(); first += step)
        {
            for (const Frame& frame : FRAMES)
                ExpectSoundCut(polygon, frame);
            std::rotate(polygon.begin(), polygon.begin() + static_cast<std::ptrdiff_t>(step), polygon.end());
        }
    }
}

TEST(PolygonCutter, CutsRandomStars)
{
    std::mt19937_64 random(7);
    for (int round = 0; round < 300; ++round)
    {
        Polygon star;
        for (int i = 0; i < 4 + round; ++i)
        {
            const double angle = 2 * std::numbers::pi * i / (4 + round);
            const double radius = 0.2 + 0.001 * static_cast<double>(random() % 800);
            star.push_back({radius * std::cos(angle), radius * std::sin(angle)});
        }
        ExpectSoundCut(star, FRAMES[round % 4]);
    }
}

// No right answer, but n - 2 triangles over the corners that there are.
TEST(PolygonCutter, EndsOnPolygonsThatCrossThemselves)
{
    std::mt19937_64 random(13);
    bat_PolygonCutter cutter;
    for (int round = 0; round < 300; ++round)
    {
        std::vector<double> corners(3 * static_cast<std::size_t>(4 + round % 60));
        for (double& x : corners)
            x = round % 2 ? double(random() % 4) : std::ldexp(double(random() % 1000), -9);
        const std::vector<bat_PolygonCutter::Triple>& triples = cutter.Cut(corners);
        ASSERT_EQ(triples.size(), corners.size() / 3 - 2);
        for (const bat_PolygonCutter::Triple& t : triples)
            ASSERT_TRUE(std::max({t[0], t[1], t[2]}) < corners.size() / 3 && t[0] != t[1] && t[1] != t[2] &&
                        t[2] != t[0]);
    }
    const std::vector<bat_PolygonCutter::Triple> fan = {{0, 1, 2}, {0, 2, 3}};
    EXPECT_EQ(cutter.Cut(std::vector<double>{0, 0, 0, 1, 1, 1, 2, 2, 2, 3, 3, 3}), fan) << "without an area";
}

// Cost close to n: with a plain loop over the blunt corners this takes minutes.
TEST(PolygonCutter, CutsAHundredThousandCornersAtOnce)
{
    const auto start = std::chrono::steady_clock::now();
    ExpectSoundCut(Comb(50000), FRAMES[0]);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
}
