// The named stages of the search, one by one, and single pairs of triangles against the interval of travel
// that the oracle finds by the Minkowski difference.
#include <testing/DirDistOracle.h>
#include <testing/SetDraw.h>

#include <gsl_StLine.h>

namespace
{
using namespace testing_sets;
constexpr double NONE = -1;
const Set EMPTY;
const Triangle LEVEL{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}};
const Triangle WALL_Y{{{0, 1, 0}, {3, 1, 0}, {0, 1, 3}}}; // upright along z

class Stages : public testing::Test
{
protected:
    bool Lower(const Triangle& movable, const Triangle& fixed, double& travel)
    {
        const gsl_Triangle m = Of(movable);
        const gsl_Triangle f = Of(fixed);
        return search_.FindDirDistBetweenTriangles(m, gsl_Plane(m.Point(0), m.Normal()), f,
                                                   gsl_Plane(f.Point(0), f.Normal()), travel);
    }
    double Pair(const Triangle& movable, const Triangle& fixed)
    {
        double travel = UNLIMITED;
        return Lower(movable, fixed, travel) ? travel : NONE;
    }

    SetSearch search_{3, EMPTY, EMPTY};
};

TEST_F(Stages, RangeFromTheOriginAndWhatIsEdgeOn)
{
    double range[2];
    search_.GetRange(Of(Triangle{{{0, 0, 1}, {5, 0, -3}, {0, 5, 2}}}), {0, 0, 10}, {0, 0, -1}, range);
    EXPECT_TRUE(range[0] == 8 && range[1] == 13);
    gsl_Triangle down = Of(LEVEL);
    down.Reverse();
    EXPECT_TRUE(!search_.ValidateTriangle(down, false) && Same(down.Normal(), gsl_Vector(0, 0, -1)));
    EXPECT_TRUE(!search_.ValidateTriangle(down, true) && Same(down.Normal(), gsl_Vector(0, 0, 1)));
    EXPECT_TRUE(Same(down.Point(0), gsl_Point(0, 0, 0))) << "reversed about the first corner";
    for (const auto& [lean, edgeOn] : {std::pair(5e-7, true), {5e-6, false}})
    {
        gsl_Triangle wall = Of(Triangle{{{0, 0, 0}, {1, 0, 0}, {0, lean, 1}}});
        EXPECT_EQ(search_.ValidateTriangle(wall, true), edgeOn);
    }
}

TEST_F(Stages, LinesMeetWithinTheTolerance)
{
    const gsl_StLine x(gsl_Point(1, 0, 0), gsl_Vector(2, 0, 0));
    gsl_Point out(7, 7, 7);
    double s1 = 7;
    double s2 = 7;
    EXPECT_FALSE(search_.FindLineLineInt(x, {gsl_Point(4, -2, 1.1e-6), gsl_Vector(0, 5, 0)}, out, s1, s2));
    EXPECT_FALSE(search_.FindLineLineInt(x, {gsl_Point(0, 0, 0), gsl_Vector(1, 5e-11, 0)}, out, s1, s2));
    EXPECT_TRUE(s1 == 7 && s2 == 7 && Same(out, gsl_Point(7, 7, 7)));
    EXPECT_TRUE(search_.FindLineLineInt(x, {gsl_Point(0, 0, 0), gsl_Vector(1, 2e-10, 0)}, out, s1, s2));
    ASSERT_TRUE(search_.FindLineLineInt(x, {gsl_Point(4, -2, 0.9e-6), gsl_Vector(0, 5, 0)}, out, s1, s2));
    EXPECT_TRUE(s1 == 3 && s2 == 2 && Near(out, gsl_Point(4, 0, 0.9e-6), 1e-15));
}

// What drawn pairs never meet: contact at corners and within the tolerance, and equal heights.
TEST_F(Stages, PairsTravelAsInTheTable)
{
    const struct
    {
        const char* what;
        Triangle movable, fixed; // travel along +z
        double travel;           // NONE: no contact
    } rows[] = {{"face on face", LEVEL, Moved(LEVEL, {0, 0, 2}), 2},
                {"corner to corner in line", LEVEL, {{{4, 0, 1}, {9, 0, 1}, {9, 9, 1}}}, 1},
                {"beside within the tolerance", LEVEL, {{{4 + 0.9e-6, 0, 1}, {9, 0, 1}, {9, 9, 1}}}, 1},
                {"beside beyond the tolerance", LEVEL, {{{4 + 1.5e-6, 0, 1}, {9, 0, 1}, {9, 9, 1}}}, NONE},
                {"in contact at the start", LEVEL, LEVEL, 0},
                {"one plane, corner on corner", WALL_Y, {{{3, 1, 6}, {5, 1, 6}, {4, 1, 9}}}, 6},
                {"parallel walls within the tolerance", WALL_Y, Moved(WALL_Y, {0, 9e-7, 5}), 2},
                {"parallel walls", WALL_Y, Moved(WALL_Y, {0, 0.1, 5}), NONE},
                {"walls like a plus sign", WALL_Y, {{{1, 0, 5}, {1, 3, 5}, {1, 0, 8}}}, 3},
                {"walls beside each other", WALL_Y, {{{4, 0, 5}, {4, 3, 5}, {4, 0, 8}}}, NONE},
                {"walls at the upright edge", WALL_Y, {{{0, -1, 5}, {0, 3, 5}, {0, 3, 8}}}, 2}};
    for (const auto& [what, movable, fixed, travel] : rows)
        EXPECT_NEAR(Pair(movable, fixed), travel, 1e-12) << what;
}

TEST_F(Stages, LowersTheBoundOnlyStrictly)
{
    const gsl_Triangle m = Of(LEVEL);
    const gsl_Triangle f = Of(Moved(LEVEL, {0, 0, 2}));
    const gsl_Plane ofF(f.Point(0), f.Normal());
    for (const auto& [bound, lowered] : {std::pair(2.5, true), {2.0, false}, {1.0, false}})
    {
        double travel[] = {bound, bound, bound};
        EXPECT_EQ(Lower(LEVEL, Moved(LEVEL, {0, 0, 2}), travel[0]), lowered);
        EXPECT_EQ(search_.FindDirDistBetTriAndTri(m, f, ofF, {0, 0, 5}, travel[1]), lowered);
        EXPECT_EQ(search_.FindDirDistBothDegen(Of(WALL_Y), Of(Moved(WALL_Y, {0, 0, 5})), travel[2]), lowered);
        for (const double t : travel)
            EXPECT_EQ(t, lowered ? 2.0 : bound);
    }
    double travel = 9;
    EXPECT_FALSE(search_.FindDirDistBetTriAndTri(m, f, ofF, {0, 0, 0}, travel));
    EXPECT_EQ(travel, 9);
}

enum class Lean { ANY, NEARLY_UPRIGHT, UPRIGHT, ONE_UPRIGHT, UPRIGHT_IN_ONE_PLANE, NEEDLE };

// A triangle through the neighbourhood of the z axis.
Triangle Drawn(GeometryDraw& draw, Lean lean, double angle)
{
    Triangle t = DrawTriangle(draw, 0, 1);
    if (lean == Lean::ANY || lean == Lean::NEEDLE)
        return lean == Lean::NEEDLE ? Needle(draw, t) : t;
    const double tilt = lean == Lean::NEARLY_UPRIGHT ? std::pow(10.0, draw.Number(-11, -3)) : 0;
    const double off = lean == Lean::UPRIGHT_IN_ONE_PLANE ? 0 : draw.Number(-0.5, 0.5);
    for (Point& p : t)
    {
        const double aside = off + tilt * p[2];
        p = {p[0] * std::cos(angle) - aside * std::sin(angle),
             p[0] * std::sin(angle) + aside * std::cos(angle), p[2]};
    }
    return t;
}

class StageOracle : public Stages, public testing::WithParamInterface<Lean>
{};

// And whatever the order of the corners, the answer is the same; and the other way round, seen from the fixed
// one.
TEST_P(StageOracle, SinglePairs)
{
    GeometryDraw draw(77);
    int met = 0;
    constexpr int PAIRS = 10000;
    const testing_oracle::Frame frame({0, 0, 1});
    for (int i = 0; i < PAIRS; ++i)
    {
        const double angle = draw.Number(0, 3);
        const double other = GetParam() == Lean::UPRIGHT_IN_ONE_PLANE ? angle : draw.Number(0, 3);
        Triangle m = Drawn(draw, GetParam(), angle);
        const Lean ofFixed = GetParam() == Lean::ONE_UPRIGHT ? Lean::ANY : GetParam();
        Triangle f = Moved(Drawn(draw, ofFixed, other), {0, 0, draw.Number(-1, 3)});
        const auto exact = testing_oracle::MeetingInterval(frame, m, f, 0, 0, 1e-15L);
        // What pruning rests on holds exactly, so also for pairs that only graze.
        const auto lower = [](const Point& a, const Point& b) { return a[2] < b[2]; };
        const double gap = (*std::min_element(f.begin(), f.end(), lower))[2] -
                           (*std::max_element(m.begin(), m.end(), lower))[2];
        const double travel = Pair(m, f);
        ASSERT_TRUE(travel == NONE || travel >= gap - 1e-6) << "pair " << i;
        if (exact.meets != testing_oracle::MeetingInterval(frame, m, f, 0, 0, 2e-6L).meets)
            continue; // grazing: the tolerance decides
        const double wanted =
            !exact.meets || exact.last < 0 ? NONE : std::max(static_cast<double>(exact.first), 0.0);
        const double allowed = Allowed({m}, {f}, {0, 0, 1}, 3);
        met += wanted != NONE;
        ASSERT_NEAR(travel, wanted, allowed) << "pair " << i;
        std::swap(m[0], m[static_cast<std::size_t>(i) % 3]);
        std::swap(f[1], f[static_cast<std::size_t>(i) / 3 % 3]);
        ASSERT_NEAR(Pair(m, f), wanted, allowed) << "turned pair " << i;
        for (Triangle* t : {&m, &f})
            for (Point& p : *t)
                p[2] = -p[2];
        ASSERT_NEAR(Pair(f, m), wanted, allowed) << "mirrored pair " << i;
    }
    EXPECT_GT(met, PAIRS / 20);
    EXPECT_LT(met, PAIRS * 9 / 10);
}

INSTANTIATE_TEST_SUITE_P(Leans, StageOracle,
                         testing::Values(Lean::ANY, Lean::NEARLY_UPRIGHT, Lean::UPRIGHT, Lean::ONE_UPRIGHT,
                                         Lean::UPRIGHT_IN_ONE_PLANE, Lean::NEEDLE));
}
