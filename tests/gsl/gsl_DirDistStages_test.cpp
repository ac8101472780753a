// The named stages of the search, one by one, and single pairs of triangles against the interval of travel
// that the oracle finds by the Minkowski difference.
#include <testing/DirDistOracle.h>
#include <testing/GeometryTesting.h>
#include <testing/SetSearch.h>

#include <gsl_PairStage.h>
#include <gsl_StLine.h>

namespace
{
using testing_sets::Of;
using testing_sets::Point;
using testing_sets::Set;
using testing_sets::SetSearch;
using testing_sets::Triangle;
using testing_sets::UNLIMITED;
constexpr double L = 1e-6;
constexpr double NONE = -1;
constexpr long double ROUNDING = 1e-15L;
const Set EMPTY;

class Stages : public testing::Test
{
protected:
    double Pair(const Triangle& movable, const Triangle& fixed)
    {
        const gsl_Triangle m = Of(movable);
        const gsl_Triangle f = Of(fixed);
        double travel = UNLIMITED;
        return search_.FindDirDistBetweenTriangles(m, gsl_Plane(m.Point(0), m.Normal()), f,
                                                   gsl_Plane(f.Point(0), f.Normal()), travel)
                   ? travel
                   : NONE;
    }

    SetSearch search_{3, EMPTY, EMPTY};
};

TEST_F(Stages, RangeIsMeasuredFromTheOrigin)
{
    double range[2];
    search_.GetRange(Of(Triangle{{{0, 0, 1}, {5, 0, -3}, {0, 5, 2}}}), {0, 0, 10}, {0, 0, -1}, range);
    EXPECT_EQ(range[0], 8);
    EXPECT_EQ(range[1], 13);
}

TEST_F(Stages, ValidateTellsEdgeOnAndReverses)
{
    const Triangle level{{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}};
    gsl_Triangle up = Of(level);
    EXPECT_FALSE(search_.ValidateTriangle(up, true));
    EXPECT_TRUE(Same(up.Normal(), gsl_Vector(0, 0, 1)));
    gsl_Triangle down = up;
    down.Reverse();
    EXPECT_FALSE(search_.ValidateTriangle(down, false));
    EXPECT_TRUE(Same(down.Normal(), gsl_Vector(0, 0, -1)));
    EXPECT_FALSE(search_.ValidateTriangle(down, true));
    EXPECT_TRUE(Same(down.Normal(), gsl_Vector(0, 0, 1)));
    EXPECT_TRUE(Same(down.Point(0), gsl_Point(0, 0, 0)));
    gsl_Triangle wall = Of(Triangle{{{0, 0, 0}, {1, 0, 0}, {0, 5e-7, 1}}});
    EXPECT_TRUE(search_.ValidateTriangle(wall, true));
    gsl_Triangle leaning = Of(Triangle{{{0, 0, 0}, {1, 0, 0}, {0, 5e-6, 1}}});
    EXPECT_FALSE(search_.ValidateTriangle(leaning, true));
}

TEST_F(Stages, LinesMeetWithinTheTolerance)
{
    const gsl_StLine x(gsl_Point(1, 0, 0), gsl_Vector(2, 0, 0));
    gsl_Point out(7, 7, 7);
    double s1 = 7;
    double s2 = 7;
    ASSERT_TRUE(search_.FindLineLineInt(x, {gsl_Point(4, -2, 0.9e-6), gsl_Vector(0, 5, 0)}, out, s1, s2));
    EXPECT_DOUBLE_EQ(s1, 3);
    EXPECT_DOUBLE_EQ(s2, 2);
    EXPECT_TRUE(Near(out, gsl_Point(4, 0, 0.9e-6), 1e-15));
    s1 = s2 = 7;
    EXPECT_FALSE(search_.FindLineLineInt(x, {gsl_Point(4, -2, 1.1e-6), gsl_Vector(0, 5, 0)}, out, s1, s2));
    EXPECT_FALSE(search_.FindLineLineInt(x, {gsl_Point(0, 0, 0), gsl_Vector(1, 5e-11, 0)}, out, s1, s2));
    EXPECT_TRUE(s1 == 7 && s2 == 7 && Near(out, gsl_Point(4, 0, 0.9e-6), 1e-15));
    EXPECT_TRUE(search_.FindLineLineInt(x, {gsl_Point(0, 0, 0), gsl_Vector(1, 2e-10, 0)}, out, s1, s2));
    EXPECT_NEAR(s1, -1, 1e-9);
}

TEST_F(Stages, ExtentsOverlapWithinTheTolerance)
{
    double low[3];
    double high[3];
    search_.InitExtent(low, high);
    EXPECT_FALSE(search_.Contains(low, high, gsl_Point(0, 0, 0)));
    search_.UpdateExtent({1, 2, 3}, low, high);
    search_.UpdateExtent({0, 5, 3}, low, high);
    EXPECT_TRUE(low[0] == 0 && low[1] == 2 && low[2] == 3 && high[0] == 1 && high[1] == 5 && high[2] == 3);
    EXPECT_TRUE(search_.Contains(low, high, gsl_Point(-0.9e-6, 2, 3 + 0.9e-6)));
    EXPECT_FALSE(search_.Contains(low, high, gsl_Point(-1.1e-6, 2, 3)));
    const double farLow[3] = {1 + 0.9e-6, 5, 3};
    const double farHigh[3] = {2, 6, 4};
    EXPECT_TRUE(search_.Overlaps(low, high, farLow, farHigh));
    const double fartherLow[3] = {1 + 1.1e-6, 5, 3};
    EXPECT_FALSE(search_.Overlaps(low, high, fartherLow, farHigh));
}

struct PairRow
{
    const char* what;
    Triangle movable, fixed; // travel along +z
    double travel;           // NONE: no contact
};

class StagePair : public Stages, public testing::WithParamInterface<PairRow>
{};

TEST_P(StagePair, TravelsAsInTheTable)
{
    const PairRow& row = GetParam();
    const double travel = Pair(row.movable, row.fixed);
    EXPECT_NEAR(travel, row.travel, 1e-12) << row.what;
    // Touched from either side, whatever the order of the corners: the same to the last bit.
    for (const auto& [i, j, k] : {std::array<std::size_t, 3>{1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {2, 1, 0}})
    {
        const auto turned = [&](const Triangle& t) { return Triangle{t[i], t[j], t[k]}; };
        EXPECT_NEAR(Pair(turned(row.movable), row.fixed), travel, 1e-15) << row.what;
        EXPECT_NEAR(Pair(row.movable, turned(row.fixed)), travel, 1e-15) << row.what;
    }
    // The other way round, seen from the fixed one.
    const auto mirrored = [](Triangle t) {
        for (Point& p : t)
            p[2] = -p[2];
        return t;
    };
    EXPECT_NEAR(Pair(mirrored(row.fixed), mirrored(row.movable)), travel, 1e-12) << row.what;
}

constexpr Triangle FLOOR{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}};
constexpr Triangle Raised(Triangle t, double by)
{
    for (Point& p : t)
        p[2] += by;
    return t;
}
// Upright along z: in the plane y = 1, and in the plane x = 1.
constexpr Triangle WALL_Y{{{0, 1, 0}, {3, 1, 0}, {0, 1, 3}}};
constexpr Triangle WALL_X{{{1, 0, 5}, {1, 3, 5}, {1, 0, 8}}};

INSTANTIATE_TEST_SUITE_P(
    Level, StagePair,
    testing::Values(
        PairRow{"face on face", FLOOR, Raised(FLOOR, 2), 2},
        PairRow{"corner on face", {{{1, 1, -1}, {1, 1, -3}, {1.5, 1, -3}}}, FLOOR, 1},
        PairRow{"face on corner", FLOOR, {{{1, 1, 1}, {1, 1, 3}, {1.5, 1.2, 3}}}, 1},
        PairRow{"edge on edge",
                {{{-1, 1, -2}, {5, 1, -2}, {2, 1.5, -9}}},
                {{{1, -1, 0}, {1, 5, 0}, {1.5, 2, 7}}},
                2},
        PairRow{"large around small",
                {{{-9, -9, -1}, {9, -9, -1}, {0, 9, -1}}},
                {{{0, 0, 0}, {0.1, 0, 0}, {0, 0.1, 0}}},
                1},
        PairRow{"corner to corner in line", FLOOR, {{{4, 0, 1}, {9, 0, 1}, {9, 9, 1}}}, 1},
        PairRow{"beside within the tolerance", FLOOR, {{{4 + 0.9e-6, 0, 1}, {9, 0, 1}, {9, 9, 1}}}, 1},
        PairRow{"beside beyond the tolerance", FLOOR, {{{4 + 1.5e-6, 0, 1}, {9, 0, 1}, {9, 9, 1}}}, NONE},
        PairRow{"behind", Raised(FLOOR, 1), FLOOR, NONE}, PairRow{"in contact at the start", FLOOR, FLOOR, 0},
        PairRow{"crossing at the start", {{{1, 1, -1}, {1, 1, 2}, {1.5, 1.2, 2}}}, FLOOR, 0},
        PairRow{"ranges overlap, yet all of it is behind",
                {{{1, 1, 1.5}, {1.5, 1, 2}, {1, 1.5, 1.5}}},
                {{{0, 0, 0}, {10, 0, 10}, {0, 10, 0}}},
                NONE},
        PairRow{"ranges overlap, and all of it is ahead",
                {{{1, 1, 0.5}, {1.5, 1, 1}, {1, 1.5, 0.5}}},
                {{{0, 0, 0}, {10, 0, 10}, {0, 10, 0}}},
                0.5}));

INSTANTIATE_TEST_SUITE_P(
    EdgeOn, StagePair,
    testing::Values(
        PairRow{"wall on floor", Raised(WALL_Y, -5), FLOOR, 2},
        PairRow{
            "wall on floor, its top corner outside", {{{-2, 1, -5}, {3, 1, -5}, {-2, 1, -1}}}, FLOOR, 2.6},
        PairRow{"floor on wall", Raised(FLOOR, -5), WALL_Y, 5},
        PairRow{"one plane, face to face", WALL_Y, Raised(WALL_Y, 7), 4},
        PairRow{"one plane, corner on slope", WALL_Y, {{{1, 1, 6}, {2, 1, 9}, {1, 1, 9}}}, 4},
        PairRow{"one plane, apart across", WALL_Y, {{{4, 1, 6}, {5, 1, 6}, {4, 1, 9}}}, NONE},
        PairRow{"one plane, corner on corner", WALL_Y, {{{3, 1, 6}, {5, 1, 6}, {4, 1, 9}}}, 6},
        PairRow{"one plane, behind", Raised(WALL_Y, 7), WALL_Y, NONE},
        PairRow{"one plane, crossing", WALL_Y, Raised(WALL_Y, 1), 0},
        PairRow{"parallel planes", WALL_Y, {{{0, 1.1, 5}, {3, 1.1, 5}, {0, 1.1, 9}}}, NONE},
        PairRow{"parallel planes within the tolerance",
                WALL_Y,
                {{{0, 1 + 9e-7, 5}, {3, 1 + 9e-7, 5}, {0, 1 + 9e-7, 9}}},
                2},
        PairRow{"crossing planes: a plus sign", WALL_Y, WALL_X, 3},
        PairRow{"crossing planes, behind", Raised(WALL_Y, 20), WALL_X, NONE},
        PairRow{"crossing planes, one through the other", Raised(WALL_Y, 5), WALL_X, 0},
        PairRow{"crossing planes, the walls beside each other",
                WALL_Y,
                {{{4, 0, 5}, {4, 3, 5}, {4, 0, 8}}},
                NONE},
        PairRow{"crossing planes at the upright edge", WALL_Y, {{{0, -1, 5}, {0, 3, 5}, {0, 3, 8}}}, 2}));

TEST_F(Stages, LowersTheBoundOnlyStrictly)
{
    const gsl_Triangle m = Of(FLOOR);
    const gsl_Triangle f = Of(Raised(FLOOR, 2));
    const gsl_Plane ofM(m.Point(0), m.Normal());
    const gsl_Plane ofF(f.Point(0), f.Normal());
    for (const auto& [bound, lowered] : {std::pair(2.5, true), {2.0, false}, {1.0, false}})
    {
        double between = bound;
        EXPECT_EQ(search_.FindDirDistBetweenTriangles(m, ofM, f, ofF, between), lowered);
        EXPECT_EQ(between, lowered ? 2.0 : bound);
        double projected = bound;
        EXPECT_EQ(search_.FindDirDistBetTriAndTri(m, f, ofF, {0, 0, 5}, projected), lowered);
        EXPECT_EQ(projected, lowered ? 2.0 : bound);
        double degenerate = bound;
        EXPECT_EQ(search_.FindDirDistBothDegen(Of(WALL_Y), Of(Raised(WALL_Y, 5)), degenerate), lowered);
        EXPECT_EQ(degenerate, lowered ? 2.0 : bound);
    }
    double travel = 9;
    EXPECT_FALSE(
        search_.FindDirDistBetTriAndTri(m, Of(WALL_Y), gsl_Plane({0, 1, 0}, {0, 1, 0}), {0, 0, 1}, travel));
    EXPECT_FALSE(search_.FindDirDistBetTriAndTri(m, f, ofF, {0, 0, 0}, travel));
    EXPECT_EQ(travel, 9);
}

gsl_Triple TripleOf(const Point& p)
{
    return {p[0], p[1], p[2]};
}

// The laws of gsl_PairStage, on which pruning rests. They hold exactly, so also for pairs that only graze.
TEST(PairStage, TravelKeepsItsLaws)
{
    GeometryDraw draw(12);
    int met = 0;
    int cut = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const gsl_Vector u = i % 2 == 0 ? draw.Unit() : gsl_Vector(0, 0, 1);
        const gsl_PairStage stage({u.X(), u.Y(), u.Z()}, L);
        gsl_Triple corner[2][3];
        gsl_Extent box[2];
        gsl_StageTriangle triangle[2];
        double low[2] = {UNLIMITED, UNLIMITED};
        double high[2] = {-UNLIMITED, -UNLIMITED};
        for (int k = 0; k < 2; ++k)
        {
            Triangle t{};
            for (int c = 0; c < 3; ++c)
            {
                for (double& x : t[static_cast<std::size_t>(c)])
                    x = i % 3 == 0 ? draw.Whole(-2, 2) : draw.Number(-2, 2);
                corner[k][c] = TripleOf(t[static_cast<std::size_t>(c)]);
                box[k].Add(corner[k][c]);
            }
            const gsl_Vector normal = Of(t).Normal();
            triangle[k] = stage.Prepare(corner[k], {normal.X(), normal.Y(), normal.Z()});
        }
        if (gsl_Length3(triangle[0].normal) == 0 || gsl_Length3(triangle[1].normal) == 0)
            continue;
        const gsl_Triple against = -stage.Direction();
        for (int k = 0; k < 2; ++k)
            for (const gsl_Triple& p : corner[k])
            {
                low[k] = std::min(low[k], gsl_Dot3(p - corner[1][0], against));
                high[k] = std::max(high[k], gsl_Dot3(p - corner[1][0], against));
            }
        gsl_BlockStore<gsl_StageView> views;
        double boxes = 0;
        double travel = 0;
        if (!stage.BoxesMeet(box[0], box[1], boxes) ||
            !stage.Travel(triangle[0], triangle[1], boxes, UNLIMITED, views, travel))
            continue;
        ++met;
        ASSERT_GE(travel, boxes) << i;
        ASSERT_GE(travel, low[0] - high[1] - L) << i;
        ASSERT_GE(high[0], low[1]) << i;
        for (const double limit : {travel * 0.5, travel, travel * 1.5, travel + 1})
        {
            double limited = 77;
            if (stage.Travel(triangle[0], triangle[1], boxes, limit, views, limited))
                ASSERT_EQ(limited, travel) << i << ", limit " << limit;
            else
            {
                ASSERT_LT(limit, travel) << i;
                ASSERT_EQ(limited, 77);
                ++cut;
            }
        }
    }
    EXPECT_GT(met, 1000);
    EXPECT_GT(cut, met / 10);
}

// How far along +z rounding may move a contact: the height of a nearly upright plane over a place that is
// known to 1e-15 of the coordinates.
double Allowed(const Triangle& a, const Triangle& b, const gsl_Vector& u, double scale)
{
    double steepest = 1;
    for (const Triangle* t : {&a, &b})
    {
        const double lean = std::fabs(Of(*t).Normal().DotProduct(u));
        steepest = lean > 1e-12 ? std::min(steepest, lean) : steepest;
    }
    return std::max(1.0, scale) * std::max(1e-9, 1e-12 / steepest);
}

enum class Lean { ANY, NEARLY_UPRIGHT, UPRIGHT, ONE_UPRIGHT, UPRIGHT_IN_ONE_PLANE, NEEDLE };

class StageOracle : public Stages, public testing::WithParamInterface<std::pair<const char*, Lean>>
{
protected:
    // A triangle through the neighbourhood of the z axis.
    static Triangle Drawn(GeometryDraw& draw, Lean lean, bool first, double angle)
    {
        const bool upright = lean == Lean::UPRIGHT || lean == Lean::UPRIGHT_IN_ONE_PLANE ||
                             (lean == Lean::ONE_UPRIGHT && first);
        const double tilt = lean == Lean::NEARLY_UPRIGHT ? std::pow(10.0, draw.Number(-11, -3)) : 0;
        const double off = lean == Lean::UPRIGHT_IN_ONE_PLANE ? 0 : draw.Number(-0.5, 0.5);
        Triangle t{};
        for (Point& p : t)
        {
            const double along = draw.Number(-1, 1);
            p[2] = draw.Number(-1, 1);
            const double aside = off + tilt * p[2];
            p[0] = along * std::cos(angle) - aside * std::sin(angle);
            p[1] = along * std::sin(angle) + aside * std::cos(angle);
            if (!upright && tilt == 0)
                p = {draw.Number(-1, 1), draw.Number(-1, 1), draw.Number(-1, 1)};
        }
        if (lean == Lean::NEEDLE)
        {
            // Down to the sine below which triangles are left out; a third corner anywhere along the long
            // side.
            const double width = std::pow(10.0, draw.Number(-9, -3));
            const double at = draw.Coin() ? 1 : draw.Number(0, 1);
            for (std::size_t k = 0; k < 3; ++k)
                t[2][k] = t[0][k] * (1 - at) + t[1][k] * at + width * draw.Number(-1, 1);
        }
        return t;
    }
};

TEST_P(StageOracle, SinglePairs)
{
    const Lean lean = GetParam().second;
    GeometryDraw draw(77);
    int met = 0;
    constexpr int PAIRS = 20000;
    const testing_oracle::Frame frame({0, 0, 1});
    for (int i = 0; i < PAIRS; ++i)
    {
        const double angle = draw.Number(0, 3);
        const Triangle m = Drawn(draw, lean, true, angle);
        const Triangle f =
            Raised(Drawn(draw, lean, false, lean == Lean::UPRIGHT_IN_ONE_PLANE ? angle : draw.Number(0, 3)),
                   draw.Number(-1, 3));
        const auto exact = testing_oracle::MeetingInterval(frame, m, f, 0, 0, ROUNDING);
        const double wanted =
            !exact.meets || exact.last < 0 ? NONE : std::max(static_cast<double>(exact.first), 0.0);
        const double travel = Pair(m, f);
        met += travel != NONE;
        ASSERT_NEAR(travel, wanted, Allowed(m, f, {0, 0, 1}, 3)) << "pair " << i;
    }
    EXPECT_GT(met, PAIRS / 20);
    EXPECT_LT(met, PAIRS * 9 / 10);
}

INSTANTIATE_TEST_SUITE_P(Leans, StageOracle,
                         testing::Values(std::pair("any", Lean::ANY),
                                         std::pair("nearlyUpright", Lean::NEARLY_UPRIGHT),
                                         std::pair("upright", Lean::UPRIGHT),
                                         std::pair("oneUpright", Lean::ONE_UPRIGHT),
                                         std::pair("uprightInOnePlane", Lean::UPRIGHT_IN_ONE_PLANE),
                                         std::pair("needles", Lean::NEEDLE)),
                         [](const auto& row) { return std::string(row.param.first); });
}
