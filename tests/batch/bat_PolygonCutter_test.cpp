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
#include <string>

namespace
{
struct Flat
{
    double x, y;
};

double Cross(const Flat& a, const Flat& b, const Flat& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double TwiceArea(const std::vector<Flat>& polygon)
{
    double sum = 0;
    for (std::size_t i = 2; i < polygon.size(); ++i)
    {
        sum += Cross(polygon[0], polygon[i - 1], polygon[i]);
    }
    return sum;
}

/// Where a flat polygon is laid in space.
struct Frame
{
    std::array<double, 3> u, v, origin;
};

const Frame FRAMES[] = {
    {{1, 0, 0}, {0, 1, 0}, {0, 0, 0}},           {{0, 1, 0}, {1, 0, 0}, {0, 0, 5}},
    {{0, 1, 0}, {0, 0, 1}, {-3, 0, 0}},          {{0, 0, 1}, {0, 1, 0}, {1e6, 1e6, 1e6}},
    {{0, 0, 1}, {1, 0, 0}, {0, 7, 0}},           {{0.6, 0.8, 0}, {-0.48, 0.36, 0.8}, {10, -20, 30}},
    {{1e-200, 0, 0}, {0, 1e-200, 0}, {0, 0, 0}}, {{1e305, 0, 0}, {0, 1e305, 0}, {0, 0, 1e307}},
};

std::vector<double> LaidIn(const Frame& frame, const std::vector<Flat>& polygon)
{
    std::vector<double> corners;
    for (const Flat& p : polygon)
    {
        for (std::size_t k = 0; k < 3; ++k)
        {
            corners.push_back(frame.origin[k] + p.x * frame.u[k] + p.y * frame.v[k]);
        }
    }
    return corners;
}

/// slack: what rounding of the corners in the frame may do to an area.
void ExpectSoundCut(const std::vector<Flat>& polygon, const std::vector<bat_PolygonCutter::Triple>& triples,
                    double slack)
{
    ASSERT_EQ(triples.size(), polygon.size() - 2);
    const double whole = TwiceArea(polygon);
    double sum = 0;
    std::set<std::size_t> used;
    for (const bat_PolygonCutter::Triple& t : triples)
    {
        const double area = Cross(polygon.at(t[0]), polygon.at(t[1]), polygon.at(t[2]));
        EXPECT_GE(area, -slack) << t[0] << " " << t[1] << " " << t[2];
        sum += std::abs(area);
        used.insert(t.begin(), t.end());
    }
    EXPECT_NEAR(sum, whole, 1e-9 * whole + slack * static_cast<double>(triples.size()));
    EXPECT_EQ(used.size(), polygon.size());
}

void ExpectSoundCutInEveryFrame(const std::vector<Flat>& polygon)
{
    bat_PolygonCutter cutter;
    ASSERT_GT(TwiceArea(polygon), 0);
    for (const Frame& frame : FRAMES)
    {
        SCOPED_TRACE(testing::Message() << "frame " << &frame - FRAMES);
        const bool isLarge = frame.origin[0] > 1e5;
        ExpectSoundCut(polygon, cutter.Cut(LaidIn(frame, polygon)), isLarge ? 1e-7 : 1e-9);
    }
}

struct ShapeRow
{
    const char* what;
    std::vector<Flat> polygon;

    friend void PrintTo(const ShapeRow& row, std::ostream* out) { *out << row.what; }
};

std::vector<Flat> Comb(int teeth)
{
    std::vector<Flat> comb = {{-1, 0}, {2.0 * teeth + 2, 0}};
    for (int i = teeth; i >= 0; --i)
    {
        comb.push_back({2.0 * i + 1, 20});
        comb.push_back({2.0 * i, 1});
    }
    return comb;
}

std::vector<Flat> Spiral(int turns, int steps)
{
    std::vector<Flat> spiral;
    const auto at = [&](int i, double radius) {
        const double angle = 2 * std::numbers::pi * i / steps;
        return Flat{radius * std::cos(angle), radius * std::sin(angle)};
    };
    for (int i = 0; i <= turns * steps; ++i)
    {
        spiral.push_back(at(i, 1.0 + double(i) / steps));
    }
    for (int i = turns * steps; i >= 0; --i)
    {
        spiral.push_back(at(i, 0.6 + double(i) / steps));
    }
    return spiral;
}

/// A square with square holes, each joined to its left neighbour by a cut that is walked twice.
std::vector<Flat> Plate(int holes)
{
    const double length = 4.0 * holes + 4;
    std::vector<Flat> plate = {{0, 0}, {length, 0}, {length, 4}, {0, 4}, {0, 2}};
    std::vector<Flat> back = {{0, 2}};
    for (int i = 0; i < holes; ++i)
    {
        const double x = 4.0 * i + 4;
        plate.insert(plate.end(), {{x, 2}, {x, 3}, {x + 1, 3}, {x + 1, 2}});
        back.insert(back.begin(), {{x + 1, 2}, {x + 1, 1}, {x, 1}, {x, 2}});
    }
    plate.insert(plate.end(), back.begin() + (holes > 0 ? 1 : 0), back.end());
    return plate;
}

const ShapeRow SHAPES[] = {
    {"triangle", {{0, 0}, {1, 0}, {0, 1}}},
    {"square", {{0, 0}, {1, 0}, {1, 1}, {0, 1}}},
    {"arrow head, blunt last", {{0, 0}, {2, -1}, {0, 3}, {-2, -1}}},
    {"arrow head, blunt first", {{0, 0}, {-2, -1}, {2, -1}, {0, 3}}},
    {"arrow head, blunt second", {{-2, -2}, {0, 0}, {2, -2}, {0, 3}}},
    {"L", {{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 3}, {0, 3}}},
    {"L from its blunt corner", {{1, 1}, {1, 3}, {0, 3}, {0, 0}, {3, 0}, {3, 1}}},
    {"U", {{0, 0}, {3, 0}, {3, 3}, {2, 3}, {2, 1}, {1, 1}, {1, 3}, {0, 3}}},
    {"corners in a row", {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}, {3, 2}, {2, 2}, {1, 2}, {1, 1}, {0, 1}}},
    {"corners twice", {{0, 0}, {3, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 1}, {1, 3}, {0, 3}, {0, 3}}},
    {"a spike out and back", {{0, 0}, {3, 0}, {3, 1}, {5, 1}, {3, 1}, {1, 1}, {1, 3}, {0, 3}}},
    {"plus sign",
     {{1, 0}, {2, 0}, {2, 1}, {3, 1}, {3, 2}, {2, 2}, {2, 3}, {1, 3}, {1, 2}, {0, 2}, {0, 1}, {1, 1}}},
    {"comb", Comb(30)},
    {"spiral", Spiral(4, 40)},
    {"plate with a hole", Plate(1)},
    {"plate with holes in a row", Plate(12)},
    {"outlines that touch in a point", {{0, 0}, {4, 0}, {2, 2}, {4, 4}, {0, 4}, {2, 2}}},
};

class CutsPolygon : public testing::TestWithParam<ShapeRow>
{};

TEST_P(CutsPolygon, FromEveryFirstCorner)
{
    std::vector<Flat> polygon = GetParam().polygon;
    const std::size_t step = std::max<std::size_t>(1, polygon.size() / 12);
    for (std::size_t first = 0; first < polygon.size(); first += step)
    {
        SCOPED_TRACE(testing::Message() << "from corner " << first);
        ExpectSoundCutInEveryFrame(polygon);
        std::rotate(polygon.begin(), polygon.begin() + static_cast<std::ptrdiff_t>(step), polygon.end());
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, CutsPolygon, testing::ValuesIn(SHAPES));

TEST(PolygonCutter, CutsRandomStarsSoundly)
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> radius(0.2, 1.0);
    for (int round = 0; round < 300; ++round)
    {
        const int count = 4 + round;
        std::vector<Flat> star;
        for (int i = 0; i < count; ++i)
        {
            const double angle = 2 * std::numbers::pi * i / count;
            const double r = radius(random);
            star.push_back({r * std::cos(angle), r * std::sin(angle)});
        }
        SCOPED_TRACE(testing::Message() << count << " corners");
        bat_PolygonCutter cutter;
        ExpectSoundCut(star, cutter.Cut(LaidIn(FRAMES[round % 6], star)), round % 6 == 3 ? 1e-7 : 1e-9);
    }
}

// Steps along a grid, never crossing: many corners in a row, right angles, narrow bays.
TEST(PolygonCutter, CutsRandomSkylinesSoundly)
{
    std::mt19937_64 random(11);
    for (int round = 0; round < 300; ++round)
    {
        std::vector<Flat> skyline;
        const int columns = 2 + round / 4;
        for (int i = columns; i >= 0; --i)
        {
            const auto top = static_cast<double>(1 + random() % 5);
            skyline.push_back({i + 1.0, top});
            skyline.push_back({double(i), top});
        }
        for (int i = 0; i <= columns + 1; ++i)
        {
            skyline.push_back({double(i), -static_cast<double>(random() % 3)});
        }
        SCOPED_TRACE(testing::Message() << "round " << round);
        bat_PolygonCutter cutter;
        ExpectSoundCut(skyline, cutter.Cut(LaidIn(FRAMES[round % 3], skyline)), 1e-12);
    }
}

/// The outline of a random patch of unit cells, with a corner at every grid point that it passes and unit
/// steps kept or merged; empty when the patch has a hole. It may touch itself in points.
std::vector<Flat> RandomOutline(std::mt19937_64& random, int cells, bool merged)
{
    std::set<std::pair<int, int>> patch = {{0, 0}};
    constexpr int STEPS[4][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    while (patch.size() < static_cast<std::size_t>(cells))
    {
        auto [x, y] = *std::next(patch.begin(), static_cast<std::ptrdiff_t>(random() % patch.size()));
        const int* step = STEPS[random() % 4];
        patch.insert({x + step[0], y + step[1]});
    }
    // Cells lie to the left of a walk in direction d from the grid point; what is at its left and right:
    const auto cellBeside = [&](int x, int y, int d, bool left) {
        const int offsets[4][2][2] = {
            {{0, -1}, {0, 0}}, {{0, 0}, {-1, 0}}, {{-1, 0}, {-1, -1}}, {{-1, -1}, {0, -1}}};
        const int* offset = offsets[d][left];
        return patch.contains({x + offset[0], y + offset[1]});
    };
    std::size_t borders = 0;
    for (const auto& [x, y] : patch)
    {
        for (const int* step : STEPS)
        {
            borders += !patch.contains({x + step[0], y + step[1]});
        }
    }
    // The first cell in order has nothing at its left: its left side, walked down, is a border.
    int x = patch.begin()->first;
    int y = patch.begin()->second + 1;
    int d = 3;
    std::vector<Flat> outline;
    const std::array<int, 3> start = {x, y, d};
    std::size_t walked = 0;
    do
    {
        x += STEPS[d][0];
        y += STEPS[d][1];
        ++walked;
        const int former = d;
        for (const int turn : {1, 0, 3}) // left first: around the same cell
        {
            d = (former + turn) % 4;
            if (cellBeside(x, y, d, true) && !cellBeside(x, y, d, false))
            {
                break;
            }
        }
        if (d != former || !merged)
        {
            outline.push_back({double(x), double(y)});
        }
    } while (std::array<int, 3>{x, y, d} != start);
    return walked == borders ? outline : std::vector<Flat>();
}

TEST(PolygonCutter, CutsRandomPatchesOfCellsSoundly)
{
    std::mt19937_64 random(17);
    int cut = 0;
    for (int round = 0; round < 3000; ++round)
    {
        const std::vector<Flat> outline = RandomOutline(random, 2 + round / 60, round % 2 == 0);
        if (!outline.empty())
        {
            SCOPED_TRACE(testing::Message() << "round " << round);
            bat_PolygonCutter cutter;
            ExpectSoundCut(outline, cutter.Cut(LaidIn(FRAMES[round % 3], outline)), 1e-12);
            ++cut;
        }
    }
    EXPECT_GT(cut, 300);
}

// No right answer, but n - 2 triangles over the corners that there are.
TEST(PolygonCutter, EndsOnPolygonsThatCrossThemselves)
{
    std::mt19937_64 random(13);
    bat_PolygonCutter cutter;
    for (int round = 0; round < 300; ++round)
    {
        std::vector<double> corners;
        for (int i = 0; i < 4 + round % 60; ++i)
        {
            for (int k = 0; k < 3; ++k)
            {
                corners.push_back(round % 2 ? double(random() % 4) : std::ldexp(double(random() % 1000), -9));
            }
        }
        const std::vector<bat_PolygonCutter::Triple>& triples = cutter.Cut(corners);
        ASSERT_EQ(triples.size(), corners.size() / 3 - 2);
        for (const bat_PolygonCutter::Triple& t : triples)
        {
            ASSERT_LT(std::max({t[0], t[1], t[2]}), corners.size() / 3);
            ASSERT_TRUE(t[0] != t[1] && t[1] != t[2] && t[2] != t[0]);
        }
    }
}

TEST(PolygonCutter, KeepsPolygonsWithoutAnArea)
{
    bat_PolygonCutter cutter;
    const std::vector<bat_PolygonCutter::Triple> fan = {{0, 1, 2}, {0, 2, 3}};
    EXPECT_EQ(cutter.Cut(std::vector<double>{0, 0, 0, 1, 1, 1, 2, 2, 2, 3, 3, 3}), fan);
    EXPECT_EQ(cutter.Cut(std::vector<double>(12, 0.0)), fan);
    EXPECT_EQ(cutter.Cut(std::vector<double>(12, 5.0)), fan);
}

TEST(PolygonCutter, CutsAWarpedQuadrangleAlongTheDiagonalInside)
{
    bat_PolygonCutter cutter;
    const std::vector<double> arrow = {0, 0, 1, 2, -1, 0, 0, 3, 1, -2, -1, 0};
    const std::vector<bat_PolygonCutter::Triple> triples = cutter.Cut(arrow);
    ASSERT_EQ(triples.size(), 2U);
    for (const bat_PolygonCutter::Triple& t : triples)
    {
        EXPECT_TRUE(std::count(t.begin(), t.end(), 0U) == 1 && std::count(t.begin(), t.end(), 2U) == 1);
    }
}

// Cost close to n: with a plain loop over the blunt corners this takes minutes.
TEST(PolygonCutter, CutsAHundredThousandCornersAtOnce)
{
    const std::vector<Flat> comb = Comb(50000);
    bat_PolygonCutter cutter;
    const auto start = std::chrono::steady_clock::now();
    ExpectSoundCut(comb, cutter.Cut(LaidIn(FRAMES[0], comb)), 1e-6);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
}
