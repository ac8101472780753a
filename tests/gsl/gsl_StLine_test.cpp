// Straight lines: how they lie to each other and to planes, in frames where the answer is known.
#include <testing/GeometryTesting.h>

#include <gsl_LineMethod.h>
#include <gsl_Plane.h>
#include <gsl_StLine.h>
#include <memory>

namespace
{
const gsl_Point ORIGIN(0, 0, 0);
const gsl_Vector X(1, 0, 0);
const gsl_Vector Y(0, 1, 0);
const gsl_Vector Z(0, 0, 1);
const gsl_Point UNTOUCHED(77, 78, 79);

TEST(StLine, KeepsAUnitDirectionAndItsMethod)
{
    const gsl_StLine line(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 5));
    EXPECT_TRUE(line.IsValid());
    EXPECT_TRUE(line.HasDirection());
    EXPECT_TRUE(Same(line.Direction(), Z));
    EXPECT_EQ(line.Direction().CachedMagnitude(), 1.0);
    EXPECT_TRUE(Same(line.PointOn(), gsl_Point(1, 2, 3)));
    EXPECT_TRUE(Same(line.PointAtDistance(-4), gsl_Point(1, 2, -1)));
    EXPECT_EQ(line.Method(), gsl_LineMethod::FROM_PNT_VECTOR);
    const gsl_StLine joined(gsl_Point(1, 0, 0), gsl_Point(1, -3, 0));
    EXPECT_EQ(joined.Method(), gsl_LineMethod::FROM_PNT_PNT);
    EXPECT_TRUE(Same(joined.Direction(), gsl_Vector(0, -1, 0)));
    EXPECT_EQ(gsl_StLine(ORIGIN, X, gsl_LineMethod::FROM_EDGE).Method(), gsl_LineMethod::FROM_EDGE);
}

TEST(StLine, WithoutADirectionIsOnlyItsPoint)
{
    const gsl_StLine none[] = {gsl_StLine(), gsl_StLine(ORIGIN, gsl_Vector(0, 0, 0)),
                               gsl_StLine(ORIGIN, gsl_Vector(0.9e-6, 0, 0), gsl_LineMethod::FROM_EDGE),
                               gsl_StLine(ORIGIN, gsl_Point(0, 0.9e-6, 0))};
    const gsl_StLine line(gsl_Point(0, 3, 4), X);
    const gsl_Plane plane(gsl_Point(0, 3, 4), Z);
    for (const gsl_StLine& bad : none)
    {
        EXPECT_FALSE(bad.IsValid());
        EXPECT_FALSE(bad.HasDirection());
        EXPECT_EQ(bad.Method(), gsl_LineMethod::STLINE_INVALID);
        EXPECT_TRUE(Same(bad.Direction(), gsl_Vector()));
        EXPECT_TRUE(Same(bad.PointAtDistance(9), ORIGIN));
        EXPECT_EQ(bad.GetDistance(gsl_Point(3, 4, 0)), 5.0);
        EXPECT_EQ(bad.GetDistance(line), 5.0);
        EXPECT_EQ(line.GetDistance(bad), 5.0);
        EXPECT_EQ(bad.GetDistance(bad), 0.0);
        EXPECT_TRUE(bad.IsSkewed(line) && line.IsSkewed(bad));
        EXPECT_FALSE(bad.IsOn(ORIGIN) || bad.IsOn(bad) || bad.IsOn(line) || line.IsOn(bad) ||
                     bad.IsOn(plane));
        EXPECT_FALSE(bad.IsParallel(bad) || bad.IsParallel(line) || bad.IsParallel(plane));
        gsl_Point out = UNTOUCHED;
        EXPECT_FALSE(bad.Intersect(line, out) || line.Intersect(bad, out) || bad.Intersect(plane, out) ||
                     bad.IntersectNonParallel(line, out) || line.IntersectNonParallel(bad, out));
        EXPECT_TRUE(Same(out, UNTOUCHED));
    }
}

// Two lines that cross at o in the planes across n, a gap apart: the gap's sign is that of n against d1 x d2.
TEST(StLine, DistancesAndMeetingPointsInAKnownFrame)
{
    GeometryDraw draw(30);
    int meet = 0;
    constexpr int DRAWS = 5000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const gsl_Vector n = draw.Unit();
        const gsl_Vector u = n.AnyOrthogonalUnit();
        const double angle = draw.Number(0.1, 3.0);
        const gsl_Vector v = u * std::cos(angle) + n.CrossProduct(u) * std::sin(angle);
        const gsl_Point o = draw.Point(10);
        const double gap = i % 2 == 0 ? draw.Number(-2e-6, 2e-6) : draw.Number(-5, 5);
        const gsl_StLine a(o + u * draw.Number(-9, 9), u);
        const gsl_StLine b(o + n * gap + v * draw.Number(-9, 9), v);
        ASSERT_NEAR(a.GetSignedDistance(b), gap, 1e-13);
        ASSERT_NEAR(b.GetSignedDistance(a), gap, 1e-13);
        ASSERT_NEAR(a.GetDistance(b), std::abs(gap), 1e-13);
        ASSERT_FALSE(a.IsParallel(b));
        gsl_Point closest;
        ASSERT_TRUE(a.IntersectNonParallel(b, closest));
        ASSERT_TRUE(Near(closest, o, 1e-11));
        ASSERT_TRUE(b.IntersectNonParallel(a, closest));
        ASSERT_TRUE(Near(closest, o + n * gap, 1e-11));
        gsl_Point out = UNTOUCHED;
        const bool hit = a.Intersect(b, out);
        ASSERT_EQ(hit, !a.IsSkewed(b));
        if (std::abs(std::abs(gap) - 1e-6) > 1e-12)
        {
            ASSERT_EQ(hit, std::abs(gap) < 1e-6) << gap;
        }
        ASSERT_TRUE(hit ? Near(out, o + n * (0.5 * gap), 1e-11) : Same(out, UNTOUCHED));
        meet += hit ? 1 : 0;
    }
    EXPECT_GT(meet, DRAWS / 5);
    EXPECT_LT(meet, DRAWS / 3);
}

TEST(StLine, SignedDistanceIsPositiveAlongTheCrossProduct)
{
    const gsl_StLine a(ORIGIN, X);
    const gsl_StLine b(gsl_Point(5, 5, 2), Y);
    EXPECT_EQ(a.GetSignedDistance(b), 2.0);
    EXPECT_EQ(b.GetSignedDistance(a), 2.0);
    EXPECT_EQ(a.GetSignedDistance(gsl_StLine(gsl_Point(5, 5, 2), Y * -1)), -2.0);
    EXPECT_EQ(a.GetDistance(gsl_StLine(gsl_Point(5, 5, 2), Y * -1)), 2.0);
}

// Parallel lines at a distance do not meet, and that is all that "skewed" asks, on purpose.
TEST(StLine, ParallelLinesAtADistanceAreSkewedToo)
{
    const gsl_StLine a(ORIGIN, X);
    for (const double sense : {1.0, -1.0})
    {
        const gsl_StLine apart(gsl_Point(9, 3, 4), X * sense);
        EXPECT_TRUE(a.IsParallel(apart) && a.IsSkewed(apart));
        EXPECT_EQ(a.GetSignedDistance(apart), 5.0);
        const gsl_StLine same(gsl_Point(9, 0, 0), X * sense);
        EXPECT_TRUE(a.IsParallel(same) && a.IsOn(same));
        EXPECT_FALSE(a.IsSkewed(same));
        gsl_Point out = UNTOUCHED;
        EXPECT_FALSE(a.Intersect(apart, out) || a.Intersect(same, out) || a.IntersectNonParallel(same, out));
        EXPECT_TRUE(Same(out, UNTOUCHED));
    }
}

TEST(StLine, RelationsAroundTheirBounds)
{
    struct Row
    {
        const char* what;
        double offset, slope; // of the second line: its point above the first, its rise on a unit run
        bool parallel, on, skewed;
    };
    const Row rows[] = {{"the same", 0, 0, true, true, false},
                        {"offset inside", 0.9e-6, 0, true, true, false},
                        {"offset on the bound: neither on nor skewed", 1e-6, 0, true, false, false},
                        {"offset outside", 1.1e-6, 0, true, false, true},
                        {"slope inside", 0, 0.9e-9, true, true, false},
                        {"slope outside", 0, 1.1e-9, false, false, false},
                        {"slope and offset", 1.1e-6, 0.9e-9, true, false, true}};
    const gsl_StLine a(ORIGIN, X);
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        const gsl_StLine b(gsl_Point(0, row.offset, 0), gsl_Vector(1, 0, row.slope));
        EXPECT_EQ(a.IsParallel(b), row.parallel);
        EXPECT_EQ(b.IsParallel(a), row.parallel);
        EXPECT_EQ(a.IsOn(b), row.on);
        EXPECT_EQ(b.IsOn(a), row.on);
        EXPECT_EQ(a.IsSkewed(b), row.skewed);
        EXPECT_EQ(b.IsSkewed(a), row.skewed);
    }
}

// Nearly parallel lines far from each other's point: which point is asked for decides.
TEST(StLine, IsOnIsNotSymmetric)
{
    const gsl_StLine a(ORIGIN, X);
    const gsl_StLine b(gsl_Point(1e4, 0, 0), gsl_Vector(1, 0.9e-9, 0));
    const gsl_StLine c(gsl_Point(1e4, 0, 0), X);
    EXPECT_FALSE(a.IsOn(b));
    EXPECT_TRUE(b.IsOn(a));
    EXPECT_TRUE(a.IsOn(c) && c.IsOn(a));
}

TEST(StLine, AgainstAPlaneInAKnownFrame)
{
    GeometryDraw draw(31);
    int meet = 0;
    constexpr int DRAWS = 5000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const gsl_Vector n = draw.Unit();
        const gsl_Vector u = n.AnyOrthogonalUnit();
        // Slopes from far below the bounds (1e-9 to meet, 1e-6 to be called parallel) to steep ones.
        const double slope = std::pow(10.0, draw.Number(-12, 0)) * (draw.Coin() ? 1 : -1);
        const gsl_Vector dir = u * std::sqrt(1 - slope * slope) + n * slope;
        const gsl_Point target = draw.Point(10);
        const double run = draw.Number(-3, 3);
        const gsl_Plane plane(target + n.CrossProduct(u) * draw.Number(-5, 5), n);
        const gsl_StLine line(target - dir * run, dir);
        gsl_Point out = UNTOUCHED;
        const bool hit = line.Intersect(plane, out);
        if (std::abs(std::abs(slope) - 1e-9) > 1e-14)
        {
            ASSERT_EQ(hit, std::abs(slope) > 1e-9) << slope;
        }
        if (std::abs(std::abs(slope) - 1e-6) > 1e-14)
        {
            ASSERT_EQ(line.IsParallel(plane), std::abs(slope) < 1e-6) << slope;
        }
        ASSERT_TRUE(hit ? Near(out, target, 1e-13 / std::abs(slope)) : Same(out, UNTOUCHED));
        const double height = line.PointOn().GetDistance(plane);
        if (std::abs(height - 1e-6) > 1e-12)
        {
            ASSERT_EQ(line.IsOn(plane), line.IsParallel(plane) && height < 1e-6);
        }
        meet += hit ? 1 : 0;
    }
    EXPECT_GT(meet, DRAWS / 2);
    EXPECT_LT(meet, 9 * DRAWS / 10);
}

// Between the two bounds a line is parallel to a plane and meets it all the same, far away.
TEST(StLine, ParallelToAPlaneIsCoarserThanMeetingIt)
{
    const gsl_Plane plane(ORIGIN, Z);
    const gsl_StLine line(gsl_Point(0, 0, 1), gsl_Vector(1, 0, -1e-7));
    gsl_Point out;
    EXPECT_TRUE(line.IsParallel(plane));
    EXPECT_TRUE(line.Intersect(plane, out));
    EXPECT_NEAR(out.X(), 1e7, 1);
}

TEST(StLine, FlipsAndKeepsTheDatumDirection)
{
    gsl_StLine line(ORIGIN, X);
    line.FlipDirection();
    EXPECT_TRUE(line.IsFlipped());
    EXPECT_TRUE(Same(line.Direction(), X * -1));
    EXPECT_TRUE(Same(line.DirectionForDatum(), X));
    line.FlipDirection();
    EXPECT_FALSE(line.IsFlipped());
    EXPECT_TRUE(Same(line.Direction(), X));
    EXPECT_TRUE(Same(line.DirectionForDatum(), X));
}

TEST(StLine, EdgeDirectionPointsAwayFromThePoint)
{
    const gsl_StLine line(gsl_Point(5, 0, 0), X);
    EXPECT_TRUE(Same(line.DirFromPtForStraightEdge(gsl_Point(0, 3, 3)), X));
    EXPECT_TRUE(Same(line.DirFromPtForStraightEdge(gsl_Point(9, 3, 3)), X * -1));
    EXPECT_TRUE(Same(line.DirFromPtForStraightEdge(gsl_Point(5, 3, 3)), X));
}

TEST(StLine, CopyIsIndependent)
{
    gsl_StLine line(ORIGIN, X);
    line.SetOwnerFeatID(12);
    const std::unique_ptr<gsl_StLine> copy(line.Copy());
    line.FlipDirection();
    line.SetOwnerFeatID(13);
    EXPECT_TRUE(Same(copy->Direction(), X));
    EXPECT_EQ(copy->OwnerFeatID(), 12);
    EXPECT_EQ(line.OwnerFeatID(), 13);
}

// Not with direction lengths: Intersection takes vectors of any length, below the linear tolerance too.
TEST(Intersection, TakesDirectionsOfAnyLength)
{
    gsl_Point out;
    EXPECT_TRUE(Intersection(X * 1e-9, gsl_Point(-3, 2, 1), Y * 1e9, gsl_Point(4, -7, 1), out));
    EXPECT_TRUE(Near(out, gsl_Point(4, 2, 1), 1e-14));
    out = UNTOUCHED;
    EXPECT_FALSE(Intersection(X, ORIGIN, X * -5, ORIGIN, out));
    EXPECT_FALSE(Intersection(X, ORIGIN, gsl_Vector(), ORIGIN, out));
    EXPECT_FALSE(Intersection(gsl_Vector(), ORIGIN, X, ORIGIN, out));
    EXPECT_FALSE(Intersection(X, ORIGIN, Y, gsl_Point(0, 0, 1.1e-6), out));
    EXPECT_TRUE(Same(out, UNTOUCHED));
    EXPECT_TRUE(Intersection(X, ORIGIN, Y, gsl_Point(3, 5, 1e-6), out));
    EXPECT_TRUE(Near(out, gsl_Point(3, 0, 0.5e-6), 1e-20));
}
}
