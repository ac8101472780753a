// The box test of the search: when a travelling box meets another, exact and never too late.
#include <testing/GeometryTesting.h>
#include <testing/SetSearch.h>

#include <gsl_SweptBox.h>

namespace
{
gsl_BBox Box(double x0, double y0, double z0, double x1, double y1, double z1)
{
    return {gsl_Point(x0, y0, z0), gsl_Point(x1, y1, z1)};
}

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

// Boxes drawn are met where they first overlap; and what pruning rests on: larger boxes are never met later,
// exactly, not up to rounding.
TEST(SweptBox, TravelIsTheFirstAtWhichTheBoxesOverlap)
{
    GeometryDraw draw(3);
    int met = 0;
    for (int i = 0; i < 10000; ++i)
    {
        const gsl_Extent m = Drawn(draw);
        const gsl_Extent f = Drawn(draw);
        const gsl_Vector u = i % 3 == 0 ? gsl_Vector(0, draw.Coin() ? 1 : -1, 0) : draw.Unit();
        const gsl_SweptBox sweep({u.X(), u.Y(), u.Z()});
        double travel = 0;
        if (!sweep.Meet(m, f, 0, travel))
        {
            for (double t = 0; t < 20; t += 0.05)
                ASSERT_FALSE(Overlap(m, u, t, f, -1e-9)) << i << " at " << t;
            continue;
        }
        ++met;
        ASSERT_TRUE(Overlap(m, u, travel, f, 1e-9)) << i;
        ASSERT_TRUE(travel == 0 || !Overlap(m, u, travel * (1 - 1e-6) - 1e-6, f, 0)) << i;
        gsl_Extent larger[2] = {m, f};
        larger[i % 2].Add({draw.Number(-3, 3), draw.Number(-3, 3), draw.Number(-3, 3)});
        double outer = 0;
        ASSERT_TRUE(sweep.Meet(larger[0], larger[1], draw.Coin() ? 0 : 2e-6, outer));
        ASSERT_LE(outer, travel);
    }
    EXPECT_GT(met, 1000);
    EXPECT_LT(met, 9000);
}

// Boxes are grown by the tolerance on every side before they are compared with the best so far.
TEST(SweptBox, ChecksAroundTheirBounds)
{
    struct Row
    {
        const char* what;
        gsl_BBox fixed;
        double current;
        bool looked;
    };
    const double none = testing_sets::UNLIMITED;
    const gsl_BBox unit = Box(0, 0, 0, 1, 1, 1);
    const gsl_BBox above = Box(0, 0, 3, 1, 1, 4);
    const Row rows[] = {{"grown boxes meet within the tolerance earlier", above, 2.0, true},
                        {"not before the best so far", above, 2.0 - 3e-6, false},
                        {"beside, inside the bound", Box(1 + 1.9e-6, 0, 3, 2, 1, 4), none, true},
                        {"beside, outside the bound", Box(1 + 2.1e-6, 0, 3, 2, 1, 4), none, false},
                        {"behind, outside the bound", Box(0, 0, -1, 1, 1, -2.1e-6), none, false},
                        {"never a tiny fixed box", Box(0, 0, 3, 5e-7, 5e-7, 3), none, false},
                        {"empty", gsl_BBox(), none, false}};
    const testing_sets::Set no;
    testing_sets::SetSearch search(1, no, no);
    const gsl_TriOctreeNode movable(unit, 1, -1, nullptr);
    for (const auto& row : rows)
        EXPECT_EQ(search.CheckBBoxes(gsl_TriOctreeNode(row.fixed, 1, -1, nullptr), movable, row.current),
                  row.looked)
            << row.what;
}
}
