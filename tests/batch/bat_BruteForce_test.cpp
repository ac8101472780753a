#include <bat_BruteForce.h>
#include <bat_Crossing.h>
#include <bat_Interrupted.h>
#include <bat_Part.h>
#include <bat_TravelResult.h>
#include <bat_TriTriCrossing.h>
#include <bat_WipWatcher.h>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
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

const gsl_Vector UP(0.0, 0.0, 1.0);

TEST(BruteForce, BracketsTheTravel)
{
    constexpr double NEVER = UNLIMITED;
    const struct
    {
        const char* what;
        PartShapes::Mesh fixed;
        double bound, low, high;
        bool crossing;
    } rows[] = {
        {"above", PartShapes::Cube({0.25, 0.25, 5}), NEVER, 4.0, 4.0, false},
        {"above, the bound before", PartShapes::Cube({0.25, 0.25, 5}), 3.0, 3.0, 3.0, false},
        {"aside", PartShapes::Cube({7, 0, 0}), NEVER, NEVER, NEVER, false},
        {"behind", PartShapes::Cube({0, 0, -5}), NEVER, NEVER, NEVER, false},
        // Walls exactly level with each other: the last bit decides, so both answers lie in the bracket.
        {"grazing", PartShapes::Cube({1, 0, 5}), NEVER, 4.0, NEVER, false},
        {"touching", PartShapes::Cube({0.25, 0.25, 1}), NEVER, 0.0, 0.0, false},
        {"through each other", PartShapes::Cube({0.5, 0.5, 0.5}), NEVER, 0.0, 0.0, true},
        {"one inside the other", PartShapes::Box({-1, -1, -1}, {2, 2, 2}), NEVER, 1.0, 1.0, false}};
    const bat_Part movable = PartOf(PartShapes::Cube({0, 0, 0}));
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.what);
        const bat_Part fixed = PartOf(row.fixed);
        const auto bracket = bat_BruteForce(fixed, movable, UP, row.bound, TOLERANCE).Find().value();
        EXPECT_NEAR(bracket.low, row.low, row.low == UNLIMITED ? 0 : 1e-5);
        EXPECT_NEAR(bracket.high, row.high, row.high == UNLIMITED ? 0 : 1e-5);
        EXPECT_EQ(bracket.crossing, row.crossing);
        EXPECT_TRUE(bracket.Holds(row.low) && bracket.Holds(row.high));
        EXPECT_EQ(bracket.Holds(4.1), row.low < 4.1 && row.high > 4.1);
        EXPECT_FALSE(row.low > 0.1 && bracket.Holds(row.low == UNLIMITED ? 1e300 : row.low - 0.1));
    }
}

// The bracket holds what the oracle finds, and is not wider than the tolerance unless the contact only
// grazes.
void ExpectHoldsTheOraclesAnswer(bool grid, double offset)
{
    std::mt19937 random(13);
    std::uniform_real_distribution<double> anywhere(-1.0, 1.0);
    std::uniform_int_distribution<int> onGrid(-2, 2);
    int found = 0;
    int crossing = 0;
    for (int round = 0; round < 150; ++round)
    {
        PartShapes::Mesh parts[2];
        for (PartShapes::Mesh& part : parts)
            for (int i = 0; i < 9 * 12; ++i)
                part.push_back((grid ? onGrid(random) : anywhere(random)) + offset);
        for (std::size_t i = 2; i < parts[0].size(); i += 3)
            parts[0][i] += round % 3 == 0 ? 0.5 : grid ? 5.0 : 3.0;
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
        if (!grid)
        {
            ASSERT_GE(bracket.high, expected - 2e-6) << "round " << round;
        }
        found += oracle.found;

        // The crossing named is the lowest pair.
        std::optional<std::pair<int, int>> lowest;
        for (int m = 0; m < movable.Count() && !lowest; ++m)
            for (int f = 0; f < fixed.Count() && !lowest; ++f)
                if (fixed.HasNormal(f) && movable.HasNormal(m) &&
                    bat_TriTriCrossing(movable.Corners(m), fixed.Corners(f)).IsBeyond(TOLERANCE))
                    lowest = std::pair(m, f);
        const bool crosses = lowest.has_value();
        ASSERT_EQ(bracket.crossing, crosses) << "round " << round;
        const auto named = bat_Crossing::Find(fixed, movable, TOLERANCE);
        ASSERT_EQ(named.has_value(), crosses) << "round " << round;
        ASSERT_TRUE(!named || (named->movable == lowest->first && named->fixed == lowest->second));
        ASSERT_TRUE(
            !named ||
            named->point ==
                bat_TriTriCrossing(movable.Corners(named->movable), fixed.Corners(named->fixed)).Middle());
        crossing += crosses;
    }
    EXPECT_GT(found, 60);
    EXPECT_GT(crossing, 10);
    EXPECT_LT(crossing, 140);
}

TEST(BruteForce, HoldsTheOraclesAnswer)
{
    ExpectHoldsTheOraclesAnswer(false, 0.0);
    ExpectHoldsTheOraclesAnswer(true, 0.0);
    ExpectHoldsTheOraclesAnswer(false, 1e6);
}

TEST(BruteForce, GivesUpBeyondItsLimitAndIsInterruptible)
{
    RecordingReporter reporter;
    const ReporterScope scope(&reporter);
    const bat_Part fixed = PartOf(PartShapes::HeightField(20, 5, 1, 1));
    const bat_Part movable = PartOf(PartShapes::HeightField(20, 0, 1, 2));
    const bat_BruteForce bruteForce(fixed, movable, UP, UNLIMITED, TOLERANCE);
    EXPECT_FALSE(bruteForce.Find(1));
    bat_WipWatcher watcher;
    reporter.interrupted = true;
    EXPECT_THROW(bruteForce.Find(bat_BruteForce::COMPUTED_LIMIT, watcher), bat_Interrupted);
    EXPECT_THROW(bat_Crossing::Find(fixed, movable, TOLERANCE, watcher), bat_Interrupted);
    EXPECT_LT(bruteForce.Find().value().high, 5.0);
}
}
