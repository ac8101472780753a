// Segments: distances with their ends, and crossings around the tolerance at ends and across the gap.
#include <testing/GeometryTesting.h>

#include <gsl_ModelSegment.h>
#include <gsl_Segment.h>

namespace
{
const gsl_Point UNTOUCHED(77, 78, 79);

TEST(Segment, DirectionAndLength)
{
    const gsl_Segment s(gsl_Point(1, 1, 1), gsl_Point(1, 4, 5));
    EXPECT_EQ(s.Length(), 5.0);
    EXPECT_TRUE(Near(s.Direction(), gsl_Vector(0, 0.6, 0.8), 1e-16));
    EXPECT_TRUE(Same(s.Point1(), gsl_Point(1, 1, 1)));
    EXPECT_TRUE(Same(s.Point2(), gsl_Point(1, 4, 5)));
    const gsl_Segment degenerate(gsl_Point(1, 1, 1), gsl_Point(1, 1, 1 + 0.5e-6));
    EXPECT_TRUE(Same(degenerate.Direction(), gsl_Vector(0, 0, 0)));
    EXPECT_NEAR(degenerate.GetDistance(gsl_Point(1, 1, 3)), 2 - 0.5e-6, 1e-12);
    EXPECT_EQ(gsl_Segment().GetDistance(gsl_Point(3, 4, 0)), 5.0);
}

TEST(Segment, DistanceBesideAndBeyondTheEnds)
{
    GeometryDraw draw(80);
    for (int i = 0; i < 2000; ++i)
    {
        const gsl_Vector u = draw.Unit();
        const gsl_Vector across = u.BestAlignedOrthogonalUnit(draw.Unit());
        const gsl_Point start = draw.Point(10);
        const double length = draw.Number(0.01, 10);
        const double along = draw.Number(-5, 15);
        const double aside = draw.Number(0, 5);
        const double beyond = std::max({0.0, -along, along - length});
        const gsl_Segment s(start, start + u * length);
        ASSERT_NEAR(s.GetDistance(start + u * along + across * aside), std::hypot(beyond, aside), 1e-13);
        ASSERT_TRUE(Near(s.ClosestPoint(start + u * along + across * aside),
                         start + u * std::min(std::max(along, 0.0), length), 1e-13));
    }
}

// Two segments whose lines cross at o, a gap apart; each starts and ends at drawn places along its line.
TEST(Segment, CrossesWithinTheToleranceOnly)
{
    GeometryDraw draw(81);
    int crossed = 0;
    constexpr int DRAWS = 8000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const gsl_Vector n = draw.Unit();
        const gsl_Vector u = n.AnyOrthogonalUnit();
        const gsl_Vector v = n.CrossProduct(u);
        const gsl_Point o = draw.Point(3);
        // Where the first segment begins, about the crossing: well before it, or around the tolerance beyond
        // it.
        const double begin = draw.Coin() ? draw.Number(-3, -1) : draw.Number(-2e-6, 2e-6);
        const double gap = draw.Coin() ? 0 : draw.Number(-2e-6, 2e-6);
        const double end = draw.Coin() ? draw.Number(1, 3) : draw.Number(-2e-6, 2e-6);
        const gsl_Segment a(o + u * begin, o + u * 4.0);
        const gsl_Segment b(o + n * gap - v * 4.0, o + n * gap + v * end);
        const double worst = std::max({begin, std::abs(gap), -end});
        gsl_Point out = UNTOUCHED;
        if (std::abs(worst - 1e-6) < 1e-12)
        {
            continue;
        }
        const bool expected = worst < 1e-6;
        ASSERT_EQ(a.Intersect(b, out), expected) << begin << " " << gap << " " << end;
        ASSERT_TRUE(expected ? Near(out, o + n * (0.5 * gap), 1e-12) : Same(out, UNTOUCHED));
        ASSERT_EQ(b.Intersect(a, out), expected);
        crossed += expected ? 1 : 0;
    }
    EXPECT_GT(crossed, DRAWS / 4);
    EXPECT_LT(crossed, 3 * DRAWS / 4);
}

TEST(Segment, ParallelAndDegenerateOnesDoNotCross)
{
    const gsl_Segment s(gsl_Point(0, 0, 0), gsl_Point(4, 0, 0));
    gsl_Point out = UNTOUCHED;
    EXPECT_FALSE(s.Intersect(s, out));
    EXPECT_FALSE(s.Intersect(gsl_Segment(gsl_Point(4, 0, 0), gsl_Point(2, 0, 0)), out));
    EXPECT_FALSE(s.Intersect(gsl_Segment(gsl_Point(1, 0, 0), gsl_Point(1, 0, 0)), out));
    EXPECT_TRUE(Same(out, UNTOUCHED));
    EXPECT_TRUE(s.Intersect(gsl_Segment(gsl_Point(4, 0, 0), gsl_Point(4, 3, 0)), out));
    EXPECT_TRUE(Same(out, gsl_Point(4, 0, 0)));
}

TEST(ModelSegment, MeasuresBetweenItsDots)
{
    const gsl_ModelSegment s(gsl_Dot(1, 2, 3), gsl_Dot(1, 6, 6));
    EXPECT_EQ(s.Length(), 5.0);
    EXPECT_TRUE(Near(s.Direction(), gsl_Vector(0, 0.8, 0.6), 1e-16));
    EXPECT_TRUE(Same(s.Point2().GetPoint(), gsl_Point(1, 6, 6)));
    EXPECT_TRUE(Same(gsl_ModelSegment().Direction(), gsl_Vector(0, 0, 0)));
    EXPECT_EQ(gsl_ModelSegment().Length(), 0.0);
}
}
