#include <bat_BruteForce.h>
#include <bat_Crossing.h>
#include <bat_Part.h>
#include <bat_TravelResult.h>
#include <bat_TriTriCrossing.h>
#include <optional>
#include <testing/DirDistOracle.h>
#include <testing/GeometryTesting.h>
#include <testing/PartShapes.h>

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

/// The lowest pair that crosses, by looking at all.
std::optional<bat_Crossing> LowestCrossing(const bat_Part& fixed, const bat_Part& movable)
{
    for (int m = 0; m < movable.Count(); ++m)
        for (int f = 0; f < fixed.Count(); ++f)
            if (const bat_TriTriCrossing pair(movable.Corners(m), fixed.Corners(f));
                fixed.HasNormal(f) && movable.HasNormal(m) && pair.IsBeyond(TOLERANCE))
                return bat_Crossing{f, m, pair.Middle()};
    return std::nullopt;
}

// The bracket holds what the oracle finds, and is not wider than the tolerance unless the contact only
// grazes.
void ExpectHoldsTheOraclesAnswer(bool grid, double offset)
{
    GeometryDraw draw(13);
    int found = 0;
    int crossing = 0;
    int narrow = 0;
    for (int round = 0; round < 150; ++round)
    {
        PartShapes::Mesh parts[2];
        for (PartShapes::Mesh& part : parts)
            for (int i = 0; i < 9 * 20; ++i)
                part.push_back((grid ? draw.Whole(-2, 2) : draw.Number(-1, 1)) + offset);
        for (std::size_t i = 2; i < parts[0].size(); i += 3)
            parts[0][i] += round % 3 == 0 ? 0.5 : grid ? 5.0 : 3.0;
        gsl_Vector u = round % 2 ? draw.Unit() : geometry::Z;
        if (u.Z() < 0)
            u = gsl_Vector(u.X(), u.Y(), -u.Z());
        const bat_Part fixed = PartOf(parts[0]);
        const bat_Part movable = PartOf(parts[1]);
        SCOPED_TRACE(round);
        const auto bracket = bat_BruteForce(fixed, movable, u, UNLIMITED, TOLERANCE).Find().value();
        const auto oracle =
            testing_oracle::FirstContact(AsOracle(fixed), AsOracle(movable), {u.X(), u.Y(), u.Z()});
        const double expected = oracle.found ? oracle.travel : UNLIMITED;
        ASSERT_LE(bracket.low, expected + bracket.slack);
        ASSERT_LE(bracket.low, bracket.high);
        ASSERT_TRUE(grid || bracket.high >= expected - 2e-6);
        found += oracle.found;
        narrow += bracket.high - bracket.low < 2e-5;
        const double bound = bat_BruteForce(fixed, movable, u, 0.25, TOLERANCE).Find().value().high;
        ASSERT_EQ(bound, std::min(bracket.high, 0.25));
        ASSERT_TRUE(round != 0 || !bat_BruteForce(fixed, movable, u, UNLIMITED, TOLERANCE).Find(1))
            << "its limit";

        const std::optional<bat_Crossing> lowest = LowestCrossing(fixed, movable);
        const std::optional<bat_Crossing> named = bat_Crossing::Find(fixed, movable, TOLERANCE);
        ASSERT_TRUE(bracket.crossing == lowest.has_value() && named.has_value() == lowest.has_value());
        ASSERT_TRUE(!named || (named->movable == lowest->movable && named->fixed == lowest->fixed &&
                               named->point == lowest->point));
        crossing += named.has_value();
    }
    EXPECT_TRUE(found > 60 && crossing > 10 && crossing < 140 && (grid || narrow > 120))
        << found << " " << crossing << " " << narrow;
}

TEST(BruteForce, HoldsTheOraclesAnswer)
{
    ExpectHoldsTheOraclesAnswer(false, 0.0);
    ExpectHoldsTheOraclesAnswer(true, 0.0);
    ExpectHoldsTheOraclesAnswer(false, 1e6);
}
}
