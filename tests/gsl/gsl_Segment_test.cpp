// Segments: distances with their ends, and crossings around the tolerance at ends and across the gap.
#include <testing/GeometryTesting.h>

#include <gsl_Segment.h>

namespace
{
using namespace geometry;

TEST(Segment, DistanceBesideAndBeyondTheEnds)
{
    GeometryDraw draw(80);
    for (int i = 0; i < 1000; ++i)
    {
        const Frame f = draw.Frame();
        const gsl_Point start = draw.Point(10);
        const double length = draw.Number(0.01, 10);
        const double along = draw.Number(-5, 15);
        const double aside = draw.Number(0, 5);
        const gsl_Segment s(start, start + f.n * length);
        const gsl_Point p = start + f.n * along + f.u * aside;
        ASSERT_NEAR(s.GetDistance(p), std::hypot(std::max({0.0, -along, along - length}), aside), 1e-13);
        ASSERT_TRUE(Near(s.ClosestPoint(p), start + f.n * std::clamp(along, 0.0, length), 1e-13));
    }
    EXPECT_EQ(gsl_Segment(ORIGIN, ORIGIN).GetDistance(gsl_Point(3, 4, 0)), 5.0);
}

// Two segments whose lines cross at o, a gap apart; each starts and ends at drawn places along its line: well
// beside the crossing, or around the tolerance of it.
TEST(Segment, CrossesWithinTheToleranceOnly)
{
    GeometryDraw draw(81);
    int crossed = 0;
    for (int i = 0; i < 4000; ++i)
    {
        const Frame f = draw.Frame();
        const gsl_Point o = draw.Point(3);
        const double begin = draw.Coin() ? draw.Number(-3, -1) : draw.Number(-2e-6, 2e-6);
        const double gap = draw.Coin() ? 0 : draw.Number(-2e-6, 2e-6);
        const double end = draw.Coin() ? draw.Number(1, 3) : draw.Number(-2e-6, 2e-6);
        const double worst = std::max({begin, std::abs(gap), -end});
        if (std::abs(worst - 1e-6) < 1e-12)
            continue;
        const gsl_Segment a(o + f.u * begin, o + f.u * 4.0);
        const gsl_Segment b(o + f.n * gap - f.v * 4.0, o + f.n * gap + f.v * end);
        gsl_Point out = UNTOUCHED;
        ASSERT_EQ(a.Intersect(b, out), worst < 1e-6) << begin << " " << gap << " " << end;
        ASSERT_TRUE(worst < 1e-6 ? Near(out, o + f.n * (0.5 * gap), 1e-12) : Same(out, UNTOUCHED));
        ASSERT_EQ(b.Intersect(a, out), worst < 1e-6);
        crossed += worst < 1e-6;
    }
    EXPECT_TRUE(crossed > 1000 && crossed < 3000) << crossed;
    const gsl_Segment s(ORIGIN, gsl_Point(4, 0, 0));
    gsl_Point out;
    EXPECT_FALSE(s.Intersect(s, out) || s.Intersect(gsl_Segment(ORIGIN, ORIGIN), out))
        << "parallel, degenerate";
}
}
