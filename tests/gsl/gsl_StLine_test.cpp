// Straight lines: how they lie to each other and to planes, in frames where the answer is known.
#include <testing/GeometryTesting.h>

#include <gsl_LineMethod.h>
#include <gsl_Plane.h>
#include <gsl_Predicates.h>
#include <gsl_StLine.h>

namespace
{
using namespace geometry;

TEST(StLine, FlippedItKeepsTheDirectionOfItsDatum)
{
    gsl_StLine line(gsl_Point(5, 2, 3), gsl_Vector(4, 0, 0));
    // The direction away from a point before, behind and beside the line's own point.
    for (const auto& [x, sign] : {std::pair(0, 1), {9, -1}, {5, 1}})
        EXPECT_TRUE(Same(line.DirFromPtForStraightEdge(gsl_Point(x, 3, 3)), X * sign));
    line.FlipDirection();
    EXPECT_TRUE(line.IsFlipped() && Same(line.Direction(), X * -1) && Same(line.DirectionForDatum(), X));
}

TEST(StLine, WithoutADirectionIsOnlyItsPoint)
{
    const gsl_StLine line(gsl_Point(0, 3, 4), X);
    const gsl_Plane plane(ORIGIN, Z);
    for (const gsl_StLine& bad : {gsl_StLine(), gsl_StLine(ORIGIN, X * 0.9e-6, gsl_LineMethod::FROM_EDGE)})
    {
        EXPECT_TRUE(!bad.IsValid() && bad.Method() == gsl_LineMethod::STLINE_INVALID);
        EXPECT_TRUE(bad.GetDistance(gsl_Point(3, 4, 0)) == 5.0 && bad.GetDistance(line) == 5.0 &&
                    line.GetDistance(bad) == 5.0 && bad.GetDistance(bad) == 0.0 && bad.IsSkewed(line));
        gsl_Point out;
        EXPECT_FALSE(ORIGIN.IsOn(bad) || bad.IsOn(bad) || line.IsOn(bad) || bad.IsOn(plane) ||
                     bad.IsParallel(bad) || bad.IsParallel(plane) || line.Intersect(bad, out) ||
                     bad.Intersect(plane, out) || bad.IntersectNonParallel(line, out));
    }
}

// Two lines that cross at o in the planes across n, a gap apart: the gap's sign is that of n against d1 x d2.
TEST(StLine, DistancesAndMeetingPointsInAKnownFrame)
{
    GeometryDraw draw(30);
    for (int i = 0; i < 2000; ++i)
    {
        const Frame f = draw.Frame();
        const double angle = draw.Number(0.1, 3.0);
        const gsl_Vector along = f.u * std::cos(angle) + f.v * std::sin(angle);
        const gsl_Point o = draw.Point(10);
        const double gap =
            (draw.Coin() ? -1 : 1) *
            (i % 3 == 0 ? draw.Number(0, 0.999e-6) : draw.Number(1.001e-6, i % 3 == 1 ? 2e-6 : 5));
        const gsl_StLine a(o + f.u * draw.Number(-9, 9), f.u);
        const gsl_StLine b(o + f.n * gap + along * draw.Number(-9, 9), along);
        ASSERT_NEAR(a.GetSignedDistance(b), gap, 1e-13);
        ASSERT_NEAR(b.GetSignedDistance(a), gap, 1e-13);
        ASSERT_NEAR(a.GetDistance(b), std::abs(gap), 1e-13);
        gsl_Point closest;
        ASSERT_TRUE(a.IntersectNonParallel(b, closest));
        ASSERT_TRUE(Near(closest, o, 1e-11));
        gsl_Point out = UNTOUCHED;
        const bool hit = std::abs(gap) < 1e-6;
        ASSERT_TRUE(a.Intersect(b, out) == hit && a.IsSkewed(b) == !hit && !a.IsParallel(b)) << gap;
        ASSERT_TRUE(hit ? Near(out, o + f.n * (0.5 * gap), 1e-11) : Same(out, UNTOUCHED));
    }
}

// Parallel lines at a distance do not meet, and that is all that "skewed" asks, on purpose.
TEST(StLine, RelationsAroundTheirBounds)
{
    const struct
    {
        const char* what;
        double away, offset, slope; // of the second line: its point, its rise on a unit run
        bool parallel, on, onBack, skewed;
    } rows[] = {{"offset inside", 9, 0.9e-6, 0, true, true, true, false},
                {"offset on the bound: neither on nor skewed", 0, 1e-6, 0, true, false, false, false},
                {"offset outside", 0, 1.1e-6, 0, true, false, false, true},
                {"slope inside", 0, 0, 0.9e-9, true, true, true, false},
                {"slope outside", 0, 0, 1.1e-9, false, false, false, false},
                // Which one's point is asked for decides.
                {"slope inside, far away", 1e4, 0, 0.9e-9, true, true, false, false}};
    const gsl_StLine a(ORIGIN, X);
    for (const auto& row : rows)
        for (const double sense : {1.0, -1.0})
        {
            SCOPED_TRACE(row.what);
            const gsl_StLine b(gsl_Point(row.away, row.offset, 0), gsl_Vector(1, row.slope, 0) * sense);
            EXPECT_TRUE(a.IsParallel(b) == row.parallel && b.IsParallel(a) == row.parallel);
            EXPECT_TRUE(b.IsOn(a) == row.on && a.IsOn(b) == row.onBack);
            EXPECT_TRUE(a.IsSkewed(b) == row.skewed && gsl_LinesAreSkew(&a, &b) == row.skewed &&
                        gsl_LinesAreParallel(&a, &b) == row.parallel);
            gsl_Point out;
            EXPECT_TRUE(!row.parallel || (!a.Intersect(b, out) && !a.IntersectNonParallel(b, out)));
            EXPECT_TRUE(row.slope != 0 || a.GetSignedDistance(b) == row.offset) << "the gap, never negative";
        }
}

// Slopes from far below the bounds (1e-9 to meet, 1e-6 to be called parallel) to steep ones: between the two
// a line is parallel to a plane and meets it all the same, far away.
TEST(StLine, AgainstAPlaneInAKnownFrame)
{
    GeometryDraw draw(31);
    for (int i = 0; i < 2000; ++i)
    {
        const Frame f = draw.Frame();
        const double slope = std::pow(10.0, draw.Number(-12, 0)) * (draw.Coin() ? 1 : -1);
        const double steep = std::abs(slope);
        if (std::abs(steep - 1e-9) < 1e-14 || std::abs(steep - 1e-6) < 1e-12)
            continue;
        const gsl_Vector dir = f.u * std::sqrt(1 - slope * slope) + f.n * slope;
        const gsl_Point target = draw.Point(10);
        const double run = draw.Number(-3, 3) * (draw.Coin() ? 1 : 1e-3);
        const gsl_Plane plane(target + f.v * draw.Number(-5, 5), f.n);
        const gsl_StLine line(target - dir * run, dir);
        gsl_Point out = UNTOUCHED;
        ASSERT_EQ(line.Intersect(plane, out), steep > 1e-9) << slope;
        ASSERT_TRUE(steep > 1e-9 ? Near(out, target, 1e-13 / steep) : Same(out, UNTOUCHED));
        ASSERT_EQ(line.IsParallel(plane), steep < 1e-6) << slope;
        const double height = std::abs(run * slope);
        ASSERT_TRUE(line.IsOn(plane) == (steep < 1e-6 && height < 1e-6) || std::abs(height - 1e-6) < 1e-12);
    }
    EXPECT_TRUE(gsl_StLine(OnAxis(2, 1e-6), X).IsOn(gsl_Plane(ORIGIN, Z))) << "the bound is inclusive";
}

// Vectors of any length, below the linear tolerance too.
TEST(Intersection, TakesDirectionsOfAnyLength)
{
    gsl_Point out;
    EXPECT_TRUE(Intersection(X * 1e-9, gsl_Point(-3, 2, 1), Y * 1e9, gsl_Point(4, -7, 1), out));
    EXPECT_TRUE(Near(out, gsl_Point(4, 2, 1), 1e-14));
    EXPECT_TRUE(Intersection(X, ORIGIN, Y, gsl_Point(3, 5, 1e-6), out)) << "the gap's bound is inclusive";
    EXPECT_FALSE(Intersection(X, ORIGIN, X * -5, ORIGIN, out) || Intersection(X, ORIGIN, Y * 0, ORIGIN, out));
}
}
