#include <algorithm>
#include <bat_BruteForce.h>
#include <bat_Crossing.h>
#include <bat_Part.h>
#include <bat_TravelResult.h>
#include <bat_TriTriCrossing.h>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <testing/DirDistOracle.h>
#include <testing/PartShapes.h>
#include <testing/RecordingReporter.h>

namespace
{
constexpr double TOLERANCE = 1e-6;
constexpr double UNLIMITED = bat_TravelResult::UNLIMITED;

bat_Part PartOf(const PartShapes::Mesh& corners)
{
    bat_TriangleMesh mesh;
    for (std::size_t i = 0; i < corners.size(); i += 9)
        mesh.Add(std::span<const double, 9>(&corners[i], 9));
    return bat_Part("part", std::move(mesh));
}

/// Without the degenerate ones, which do not count.
std::vector<testing_oracle::Triangle> AsOracle(const bat_Part& part)
{
    std::vector<testing_oracle::Triangle> triangles;
    for (int i = 0; i < part.Count(); ++i)
        if (const bat_Corners c = part.Corners(i); part.HasNormal(i))
            triangles.push_back({{{c[0], c[1], c[2]}, {c[3], c[4], c[5]}, {c[6], c[7], c[8]}}});
    return triangles;
}

class BruteForceTest : public testing::Test
{
protected:
    bat_BruteForce::Bracket Find(const PartShapes::Mesh& fixed, const PartShapes::Mesh& movable,
                                 const gsl_Vector& direction, double bound = UNLIMITED)
    {
        const bat_Part f = PartOf(fixed);
        const bat_Part m = PartOf(movable);
        return bat_BruteForce(f, m, direction, bound, TOLERANCE).Find().value();
    }

    RecordingReporter reporter;
    ReporterScope scope{&reporter};
    const gsl_Vector up{0.0, 0.0, 1.0};
};

TEST_F(BruteForceTest, CubeOverCube)
{
    const auto bracket = Find(PartShapes::Cube({0.25, 0.25, 5}), PartShapes::Cube({0, 0, 0}), up);
    EXPECT_NEAR(bracket.low, 4.0, 1e-5);
    EXPECT_NEAR(bracket.high, 4.0, 1e-12);
    EXPECT_FALSE(bracket.crossing);
    EXPECT_TRUE(bracket.Holds(4.0));
    EXPECT_FALSE(bracket.Holds(4.1));
    EXPECT_FALSE(bracket.Holds(3.9));
}

TEST_F(BruteForceTest, ABoundIsTheAnswerWhereNothingComesBefore)
{
    const PartShapes::Mesh fixed = PartShapes::Cube({0.25, 0.25, 5});
    const auto bracket = Find(fixed, PartShapes::Cube({0, 0, 0}), up, 3.0);
    EXPECT_EQ(bracket.low, 3.0);
    EXPECT_EQ(bracket.high, 3.0);
    const auto aside = Find(fixed, PartShapes::Cube({7, 0, 0}), up);
    EXPECT_EQ(aside.low, UNLIMITED);
    EXPECT_EQ(aside.high, UNLIMITED);
    EXPECT_TRUE(aside.Holds(UNLIMITED));
    EXPECT_FALSE(aside.Holds(4.0));
    const auto behind = Find(PartShapes::Cube({0, 0, -5}), PartShapes::Cube({0, 0, 0}), up);
    EXPECT_EQ(behind.low, UNLIMITED);
}

// Cubes whose walls are exactly level with each other: the last bit decides, so both answers lie in the
// bracket.
TEST_F(BruteForceTest, GrazingContactsAreLeftOpen)
{
    const auto bracket = Find(PartShapes::Cube({1, 0, 5}), PartShapes::Cube({0, 0, 0}), up);
    EXPECT_NEAR(bracket.low, 4.0, 1e-5);
    EXPECT_EQ(bracket.high, UNLIMITED);
}

TEST_F(BruteForceTest, TellsCrossingFromTouching)
{
    const PartShapes::Mesh cube = PartShapes::Cube({0, 0, 0});
    EXPECT_TRUE(Find(PartShapes::Cube({0.5, 0.5, 0.5}), cube, up).crossing);
    const auto touching = Find(PartShapes::Cube({0.25, 0.25, 1}), cube, up);
    EXPECT_FALSE(touching.crossing);
    EXPECT_LE(touching.high, 2e-6);
    EXPECT_FALSE(Find(PartShapes::Box({-1, -1, -1}, {2, 2, 2}), cube, up).crossing) << "one inside the other";
}

struct SetsRow
{
    const char* what;
    bool grid;
    double offset;
};

class BruteForceRandom : public testing::TestWithParam<SetsRow>
{};

// The bracket holds what the oracle finds, and is not wider than the tolerance unless the contact only
// grazes.
TEST_P(BruteForceRandom, HoldsTheOraclesAnswer)
{
    RecordingReporter reporter;
    ReporterScope scope(&reporter);
    std::mt19937 random(13);
    std::uniform_real_distribution<double> anywhere(-1.0, 1.0);
    std::uniform_int_distribution<int> onGrid(-2, 2);
    const double offset = GetParam().offset;
    int found = 0;
    int sharp = 0;
    int crossing = 0;
    for (int round = 0; round < 150; ++round)
    {
        PartShapes::Mesh parts[2];
        for (PartShapes::Mesh& part : parts)
            for (int i = 0; i < 9 * 12; ++i)
                part.push_back((GetParam().grid ? onGrid(random) : anywhere(random)) + offset);
        for (std::size_t i = 2; i < parts[0].size(); i += 3)
            parts[0][i] += round % 3 == 0 ? 0.5 : GetParam().grid ? 5.0 : 3.0;
        const double d[3] = {round % 2 ? 0.5 * anywhere(random) : 0.0,
                             round % 2 ? 0.5 * anywhere(random) : 0.0, 1.0};
        const double length = std::sqrt(d[0] * d[0] + d[1] * d[1] + 1.0);
        const gsl_Vector u(d[0] / length, d[1] / length, d[2] / length);

        const bat_Part fixed = PartOf(parts[0]);
        const bat_Part movable = PartOf(parts[1]);
        const auto bracket = bat_BruteForce(fixed, movable, u, UNLIMITED, TOLERANCE).Find().value();
        const auto oracle =
            testing_oracle::FirstContact(AsOracle(fixed), AsOracle(movable), {u.X(), u.Y(), u.Z()});
        const double expected = oracle.found ? oracle.travel : UNLIMITED;
        ASSERT_LE(bracket.low, expected + bracket.slack) << "round " << round;
        ASSERT_LE(bracket.low, bracket.high) << "round " << round;
        if (!GetParam().grid)
        {
            ASSERT_GE(bracket.high, expected - 2e-6) << "round " << round;
        }
        found += oracle.found;
        sharp += bracket.high - bracket.low < 1e-3 || bracket.low == UNLIMITED;

        bool crosses = false;
        for (int f = 0; f < fixed.Count(); ++f)
            for (int m = 0; m < movable.Count(); ++m)
                crosses =
                    crosses || (fixed.HasNormal(f) && movable.HasNormal(m) &&
                                bat_TriTriCrossing(movable.Corners(m), fixed.Corners(f)).IsBeyond(TOLERANCE));
        ASSERT_EQ(bracket.crossing, crosses) << "round " << round;
        ASSERT_EQ(bat_Crossing::Find(fixed, movable, TOLERANCE).has_value(), crosses) << "round " << round;
        crossing += crosses;
    }
    EXPECT_GT(found, 60);
    EXPECT_GT(sharp, GetParam().grid ? 20 : 120);
    EXPECT_GT(crossing, 10);
    EXPECT_LT(crossing, 140);
}

INSTANTIATE_TEST_SUITE_P(Sets, BruteForceRandom,
                         testing::Values(SetsRow{"Anywhere", false, 0.0}, SetsRow{"Grid", true, 0.0},
                                         SetsRow{"FarOff", false, 1e6}),
                         [](const testing::TestParamInfo<SetsRow>& row) { return row.param.what; });

TEST_F(BruteForceTest, TheCrossingNamedIsTheLowestPair)
{
    const PartShapes::Mesh sphere = PartShapes::Sphere({0, 0, 0}, 1.0, 12);
    const bat_Part fixed = PartOf(sphere);
    const bat_Part movable = PartOf(PartShapes::Moved(sphere, {0.7, 0.2, 0.1}));
    const auto found = bat_Crossing::Find(fixed, movable, TOLERANCE);
    ASSERT_TRUE(found);
    for (int m = 0; m <= found->movable; ++m)
        for (int f = 0; f < (m == found->movable ? found->fixed : fixed.Count()); ++f)
            if (fixed.HasNormal(f) && movable.HasNormal(m))
            {
                ASSERT_FALSE(bat_TriTriCrossing(movable.Corners(m), fixed.Corners(f)).IsBeyond(TOLERANCE))
                    << f << " with " << m;
            }
    const bat_TriTriCrossing pair(movable.Corners(found->movable), fixed.Corners(found->fixed));
    EXPECT_TRUE(pair.IsBeyond(TOLERANCE));
    EXPECT_EQ(found->point, pair.Middle());
}

TEST_F(BruteForceTest, GivesUpBeyondItsLimit)
{
    const bat_Part fixed = PartOf(PartShapes::Cube({0.25, 0.25, 5}));
    const bat_Part movable = PartOf(PartShapes::Cube({0, 0, 0}));
    const bat_BruteForce bruteForce(fixed, movable, up, UNLIMITED, TOLERANCE);
    EXPECT_FALSE(bruteForce.Find(1));
    EXPECT_TRUE(bruteForce.Find(144));
}

TEST_F(BruteForceTest, IsInterruptible)
{
    const bat_Part fixed = PartOf(PartShapes::HeightField(20, 5, 1, 1));
    const bat_Part movable = PartOf(PartShapes::HeightField(20, 0, 1, 2));
    const bat_BruteForce bruteForce(fixed, movable, up, UNLIMITED, TOLERANCE);
    EXPECT_GT(bruteForce.Pairs(), 10000u);
    reporter.throwing = true;
    EXPECT_THROW(bruteForce.Find(), RecordingReporter::Thrown);
    EXPECT_THROW(bat_Crossing::Find(fixed, movable, TOLERANCE), RecordingReporter::Thrown);
    reporter.throwing = false;
    EXPECT_LT(bruteForce.Find().value().high, 5.0);
}
}
