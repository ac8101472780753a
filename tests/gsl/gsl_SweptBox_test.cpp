// The box test of the search: when a travelling box meets another, exact and never too late.
#include <testing/GeometryTesting.h>
#include <testing/SetSearch.h>

#include <gsl_SweptBox.h>

namespace
{
using testing_sets::Set;
using testing_sets::SetSearch;
using testing_sets::UNLIMITED;
const Set NONE;

gsl_BBox Box(double x0, double y0, double z0, double x1, double y1, double z1)
{
    return {gsl_Point(x0, y0, z0), gsl_Point(x1, y1, z1)};
}

struct SweepRow
{
    const char* what;
    gsl_BBox movable, fixed;
    gsl_Vector direction;
    double travel; // negative: they never meet
};

class SweptBox : public testing::TestWithParam<SweepRow>
{};

TEST_P(SweptBox, MeetsAsInTheTable)
{
    const SweepRow& row = GetParam();
    SetSearch search(1, NONE, NONE);
    ASSERT_TRUE(search.SetDirection(row.direction));
    double travel = 77;
    EXPECT_EQ(search.FindMinDirDistBetBBoxes(row.movable, row.fixed, travel), row.travel >= 0) << row.what;
    EXPECT_DOUBLE_EQ(travel, row.travel >= 0 ? row.travel : 77) << row.what;
}

const gsl_BBox UNIT = Box(0, 0, 0, 1, 1, 1);
const gsl_Vector UP(0, 0, 1);

INSTANTIATE_TEST_SUITE_P(
    Rows, SweptBox,
    testing::Values(SweepRow{"plus sign: no corner of either is over the other", Box(-5, -1, 0, 5, 1, 1),
                             Box(-1, -5, 3, 1, 5, 4), UP, 2},
                    SweepRow{"overlap", UNIT, Box(0.5, 0.5, 0.5, 2, 2, 2), UP, 0},
                    SweepRow{"inside", Box(1, 1, 1, 2, 2, 2), Box(0, 0, 0, 9, 9, 9), UP, 0},
                    SweepRow{"around", Box(0, 0, 0, 9, 9, 9), Box(1, 1, 1, 2, 2, 2), UP, 0},
                    SweepRow{"behind", UNIT, Box(0, 0, -3, 1, 1, -2), UP, -1},
                    SweepRow{"touching from behind", UNIT, Box(0, 0, -1, 1, 1, 0), UP, 0},
                    SweepRow{"touching on the way along a side", UNIT, Box(1, 0, 5, 2, 1, 6), UP, 4},
                    SweepRow{"beside", UNIT, Box(1.001, 0, 5, 2, 1, 6), UP, -1},
                    SweepRow{"against the axis", UNIT, Box(0, 0, -3, 1, 1, -2), gsl_Vector(0, 0, -2), 2},
                    SweepRow{"flat boxes", Box(0, 0, 0, 1, 1, 0), Box(0, 0, 2.5, 1, 1, 2.5), UP, 2.5},
                    SweepRow{"a point", Box(0.5, 0.5, 0, 0.5, 0.5, 0), Box(0, 0, 2, 1, 1, 3), UP, 2},
                    SweepRow{"diagonal, corner to corner", UNIT, Box(2, 2, 2, 3, 3, 3), gsl_Vector(1, 1, 1),
                             std::sqrt(3.0)},
                    SweepRow{"diagonal, misses", UNIT, Box(2, 5, 2, 3, 6, 3), gsl_Vector(1, 1, 1), -1},
                    SweepRow{"a component too small to matter", UNIT, Box(0, 0, 2, 1, 1, 3),
                             gsl_Vector(1e-308, 0, 1), 1},
                    SweepRow{"empty movable", gsl_BBox(), UNIT, UP, -1},
                    SweepRow{"empty fixed", UNIT, gsl_BBox(), UP, -1}));

gsl_Extent Drawn(GeometryDraw& draw)
{
    gsl_Extent box;
    for (int i = 0; i < 2; ++i)
        box.Add({draw.Number(-3, 3), draw.Number(-3, 3), draw.Number(-3, 3)});
    return box;
}

bool Overlap(const gsl_Extent& a, const gsl_Vector& u, double t, const gsl_Extent& b, double margin)
{
    for (int k = 0; k < 3; ++k)
        if (a.low[k] + t * u[k] > b.high[k] + margin || a.high[k] + t * u[k] < b.low[k] - margin)
            return false;
    return true;
}

TEST(SweptBox, TravelIsTheFirstAtWhichTheBoxesOverlap)
{
    GeometryDraw draw(3);
    int met = 0;
    for (int i = 0; i < 4000; ++i)
    {
        const gsl_Extent m = Drawn(draw);
        const gsl_Extent f = Drawn(draw);
        const gsl_Vector u = i % 3 == 0 ? gsl_Vector(0, draw.Coin() ? 1 : -1, 0) : draw.Unit();
        double travel = 0;
        if (!gsl_SweptBox({u.X(), u.Y(), u.Z()}).Meet(m, f, 0, travel))
        {
            for (double t = 0; t < 20; t += 0.05)
                ASSERT_FALSE(Overlap(m, u, t, f, -1e-9)) << i << " at " << t;
            continue;
        }
        ++met;
        ASSERT_TRUE(Overlap(m, u, travel, f, 1e-9)) << i;
        if (travel > 0)
        {
            ASSERT_FALSE(Overlap(m, u, travel * (1 - 1e-6) - 1e-6, f, 0)) << i;
        }
    }
    EXPECT_GT(met, 400);
    EXPECT_LT(met, 3600);
}

// What pruning by boxes rests on: exact, not up to rounding.
TEST(SweptBox, LargerBoxesNeverMeetLater)
{
    GeometryDraw draw(4);
    int met = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const gsl_Extent m = Drawn(draw);
        const gsl_Extent f = Drawn(draw);
        gsl_Extent larger[2] = {m, f};
        for (gsl_Extent& box : larger)
            if (draw.Coin())
                box.Add({draw.Number(-3, 3), draw.Number(-3, 3), draw.Number(-3, 3)});
        const gsl_Vector u = draw.Unit();
        const gsl_SweptBox sweep({u.X(), u.Y(), u.Z()});
        const double slack = draw.Coin() ? 0 : 2e-6;
        double inner = 0;
        double outer = 0;
        if (!sweep.Meet(m, f, slack, inner))
            continue;
        ++met;
        ASSERT_TRUE(sweep.Meet(larger[0], larger[1], slack + (draw.Coin() ? 1e-9 : 0), outer));
        ASSERT_LE(outer, inner);
    }
    EXPECT_GT(met, 2000);
}

class BoxCheck : public testing::Test
{
protected:
    bool Check(const gsl_BBox& fixed, const gsl_BBox& movable, double current)
    {
        const gsl_TriOctreeNode f(fixed, 1, -1, nullptr);
        const gsl_TriOctreeNode m(movable, 1, -1, nullptr);
        return search_.CheckBBoxes(f, m, current);
    }

    SetSearch search_{1, NONE, NONE};
};

TEST_F(BoxCheck, IsStrictAgainstTheBestSoFar)
{
    const gsl_BBox above = Box(0, 0, 3, 1, 1, 4);
    EXPECT_TRUE(Check(above, UNIT, UNLIMITED));
    EXPECT_TRUE(Check(above, UNIT, 2.001));
    EXPECT_TRUE(Check(above, UNIT, 2.0)); // grown boxes meet within the tolerance earlier
    EXPECT_FALSE(Check(above, UNIT, 2.0 - 3e-6));
    EXPECT_FALSE(Check(UNIT, UNIT, 0.0));
    EXPECT_FALSE(Check(UNIT, UNIT, -1.0));
    EXPECT_FALSE(Check(UNIT, UNIT, std::nan("")));
}

TEST_F(BoxCheck, GrowsByTheTolerance)
{
    EXPECT_TRUE(Check(Box(1 + 1.9e-6, 0, 3, 2, 1, 4), UNIT, UNLIMITED));
    EXPECT_FALSE(Check(Box(1 + 2.1e-6, 0, 3, 2, 1, 4), UNIT, UNLIMITED));
    EXPECT_TRUE(Check(Box(0, 0, -1, 1, 1, -1.9e-6), UNIT, UNLIMITED));
    EXPECT_FALSE(Check(Box(0, 0, -1, 1, 1, -2.1e-6), UNIT, UNLIMITED));
}

TEST_F(BoxCheck, NeverLooksAtATinyFixedBox)
{
    EXPECT_FALSE(Check(Box(0, 0, 3, 5e-7, 5e-7, 3), UNIT, UNLIMITED));
    // The diagonal counts: flat and needle boxes are looked at, whatever their volume.
    EXPECT_TRUE(Check(Box(0, 0, 3, 1, 1, 3), UNIT, UNLIMITED));
    EXPECT_TRUE(Check(Box(0.5, 0.5, 3, 0.5, 0.5, 3 + 1.1e-6), UNIT, UNLIMITED));
    EXPECT_TRUE(Check(UNIT, Box(0, 0, -2, 0, 0, -2), UNLIMITED));
}

TEST_F(BoxCheck, MovesTheFixedBox)
{
    gsl_Matrix shift;
    shift.SetTranslation({0, 0, -10});
    const gsl_BBox above = Box(0, 0, 12, 1, 1, 13);
    EXPECT_FALSE(Check(above, UNIT, 5));
    search_.SetFixedTransform(shift);
    EXPECT_TRUE(Check(above, UNIT, 5));
    EXPECT_FALSE(Check(UNIT, UNIT, 5));
}

}
