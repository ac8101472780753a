// Boxes: bounds by axis and sign, all relations of a pair at once, and the empty box in every operation.
#include <testing/GeometryTesting.h>

#include <g3d_Sphere.h>
#include <gsl_BBox.h>
#include <gsl_Matrix.h>
#include <sstream>
#include <string>

namespace
{
gsl_Point OnAxis(int axis, double value, double others)
{
    return {axis == 0 ? value : others, axis == 1 ? value : others, axis == 2 ? value : others};
}

testing::AssertionResult HasCorners(const gsl_BBox& box, const gsl_Point& low, const gsl_Point& high)
{
    const testing::AssertionResult first = Same(box.Low(), low);
    return first ? Same(box.High(), high) : first;
}

struct EmptyBox
{
    const char* what;
    gsl_BBox box;
};

std::vector<EmptyBox> EmptyBoxes()
{
    gsl_BBox vacated(gsl_Point(5, 5, 5));
    vacated.Vacate();
    std::vector<EmptyBox> boxes = {{"default", gsl_BBox()}, {"vacated", vacated}};
    for (int axis = 0; axis < 3; ++axis)
    {
        boxes.push_back({"high below low on one axis", gsl_BBox(OnAxis(axis, 2, 0), OnAxis(axis, 1, 4))});
    }
    boxes.push_back(
        {"by the least step", gsl_BBox(gsl_Point(1, 1, 1), gsl_Point(std::nextafter(1.0, 0.0), 9, 9))});
    return boxes;
}

TEST(BBoxEmpty, IsStoredAsOriginAndMinusOne)
{
    EXPECT_TRUE(HasCorners(gsl_BBox(), gsl_Point(0, 0, 0), gsl_Point(-1, -1, -1)));
    gsl_BBox box(gsl_Point(3, 4, 5));
    EXPECT_FALSE(box.IsEmpty());
    box.Vacate();
    EXPECT_TRUE(box.IsEmpty());
    EXPECT_TRUE(HasCorners(box, gsl_Point(0, 0, 0), gsl_Point(-1, -1, -1)));
}

TEST(BBoxEmpty, InEveryOperation)
{
    const gsl_BBox full(gsl_Point(-10, -10, -10), gsl_Point(10, 10, 10));
    gsl_Matrix moved;
    ASSERT_TRUE(moved.AxisRotation(gsl_Vector(1, 2, 3), 1));
    moved.SetTranslation(gsl_Vector(100, 0, 0));
    for (const EmptyBox& row : EmptyBoxes())
    {
        SCOPED_TRACE(row.what);
        const gsl_BBox& empty = row.box;
        EXPECT_TRUE(empty.IsEmpty());
        EXPECT_FALSE(empty.ContainsPoint(empty.Low()) || empty.ContainsPoint(empty.High()) ||
                     empty.ContainsPoint(empty.Center()));
        EXPECT_FALSE(empty.Intersect(gsl_Point(0, 0, 0)));
        EXPECT_FALSE(empty.ContainsBox(full) || full.ContainsBox(empty) || empty.ContainsBox(empty));
        EXPECT_FALSE(empty.Intersect(full) || full.Intersect(empty) || empty.Intersect(empty));
        EXPECT_FALSE(empty.SphereContainsBox(g3d_Sphere(0, 0, 0, 1000)));
        EXPECT_TRUE(Same(empty.Diag(), gsl_Vector(0, 0, 0)));
        EXPECT_EQ(empty.Size(), 0.0);
        EXPECT_EQ(empty.XLen(), 0.0);
        EXPECT_EQ(empty.YLen(), 0.0);
        EXPECT_EQ(empty.ZLen(), 0.0);
        EXPECT_TRUE(empty == gsl_BBox());
        EXPECT_TRUE(empty != full);
        gsl_BBox turned = empty;
        turned.Transform(moved);
        EXPECT_TRUE(turned.IsEmpty());
        gsl_BBox grown = full;
        grown.Add(empty);
        EXPECT_TRUE(HasCorners(grown, full.Low(), full.High()));
        gsl_BBox filled = empty;
        filled.Add(empty);
        EXPECT_TRUE(filled.IsEmpty());
        filled.Add(gsl_Point(7, 8, 9));
        EXPECT_TRUE(HasCorners(filled, gsl_Point(7, 8, 9), gsl_Point(7, 8, 9)));
        filled = empty;
        filled.Add(full);
        EXPECT_TRUE(HasCorners(filled, full.Low(), full.High()));
    }
}

TEST(BBox, BoundsAreInclusiveOnEveryAxisAndSide)
{
    const gsl_BBox box(gsl_Point(1, 1, 1), gsl_Point(2, 2, 2));
    for (int axis = 0; axis < 3; ++axis)
    {
        for (const double bound : {1.0, 2.0})
        {
            const double outwards = bound == 1.0 ? 0.0 : 3.0;
            EXPECT_TRUE(box.ContainsPoint(OnAxis(axis, bound, 1.5))) << axis << " " << bound;
            EXPECT_TRUE(box.Intersect(OnAxis(axis, bound, 1.5))) << axis << " " << bound;
            EXPECT_TRUE(box.ContainsPoint(OnAxis(axis, std::nextafter(bound, 1.5), 1.5)))
                << axis << " " << bound;
            EXPECT_FALSE(box.ContainsPoint(OnAxis(axis, std::nextafter(bound, outwards), 1.5)))
                << axis << " " << bound;
        }
    }
}

TEST(BBox, AddWidensPerAxisAndKeepsTheCornersIdentities)
{
    for (int axis = 0; axis < 3; ++axis)
    {
        for (const double value : {-3.0, 4.0})
        {
            gsl_BBox box(gsl_Point(0, 0, 0), gsl_Point(1, 1, 1));
            const cls_Uid low = box.Low().Uid();
            const cls_Uid high = box.High().Uid();
            box.Add(OnAxis(axis, value, 0.5));
            EXPECT_TRUE(HasCorners(box, OnAxis(axis, std::min(value, 0.0), 0),
                                   OnAxis(axis, std::max(value, 1.0), 1)));
            EXPECT_EQ(box.Low().Uid(), low);
            EXPECT_EQ(box.High().Uid(), high);
        }
    }
    gsl_BBox box(gsl_Point(0, 0, 0), gsl_Point(1, 1, 1));
    box.Add(gsl_Point(0.5, 0.25, 1));
    EXPECT_TRUE(HasCorners(box, gsl_Point(0, 0, 0), gsl_Point(1, 1, 1)));
}

// All relations of a pair at once, on the line: a contains b, b contains a, they meet; then the length of the
// union. The same is asked with the pair on each of the three axes.
std::string Relations(const gsl_BBox& a, const gsl_BBox& b)
{
    std::string text;
    for (const bool answer : {a.ContainsBox(b), b.ContainsBox(a), a.Intersect(b)})
    {
        text += answer ? 'T' : 'F';
    }
    EXPECT_EQ(a.Intersect(b), b.Intersect(a));
    gsl_BBox both = a;
    both.Add(b);
    gsl_BBox other = b;
    other.Add(a);
    EXPECT_TRUE(both == other);
    EXPECT_TRUE((a.IsEmpty() || both.ContainsBox(a)) && (b.IsEmpty() || both.ContainsBox(b)));
    return text;
}

TEST(BBox, RelationsOfPairs)
{
    struct Row
    {
        const char* what;
        double a, b, c, d; // [a, b] and [c, d] on the axis; both [0, 1] on the others
        const char* relations;
    };
    const Row rows[] = {{"the same", 1, 2, 1, 2, "TTT"},
                        {"inside", 0, 9, 1, 2, "TFT"},
                        {"inside, on a side", 0, 9, 0, 2, "TFT"},
                        {"around", 3, 4, 1, 9, "FTT"},
                        {"overlap", 0, 2, 1, 3, "FFT"},
                        {"touch", 0, 1, 1, 2, "FFT"},
                        {"apart", 0, 1, 1.0000001, 2, "FFF"},
                        {"apart, behind", 5, 6, 1, 2, "FFF"},
                        {"a point inside", 0, 2, 1, 1, "TFT"},
                        {"a point on the side", 0, 2, 2, 2, "TFT"},
                        {"empty", 0, 2, 1, 0, "FFF"},
                        {"both empty", 1, 0, 3, 2, "FFF"}};
    for (const Row& row : rows)
    {
        for (int axis = 0; axis < 3; ++axis)
        {
            SCOPED_TRACE(row.what + std::string(", axis ") + std::to_string(axis));
            EXPECT_EQ(Relations(gsl_BBox(OnAxis(axis, row.a, 0), OnAxis(axis, row.b, 1)),
                                gsl_BBox(OnAxis(axis, row.c, 0), OnAxis(axis, row.d, 1))),
                      row.relations);
        }
    }
}

// Crossing like a plus sign: no corner of either lies in the other.
TEST(BBox, CrossingBoxesMeet)
{
    const gsl_BBox flat(gsl_Point(-5, -1, -1), gsl_Point(5, 1, 1));
    const gsl_BBox tall(gsl_Point(-1, -5, -1), gsl_Point(1, 5, 1));
    EXPECT_TRUE(flat.Intersect(tall) && tall.Intersect(flat));
    EXPECT_FALSE(flat.ContainsBox(tall) || tall.ContainsBox(flat));
}

TEST(BBox, MeetsExactlyWhenSomePointIsInBoth)
{
    GeometryDraw draw(60);
    int meet = 0;
    constexpr int DRAWS = 3000;
    for (int i = 0; i < DRAWS; ++i)
    {
        const auto whole = [&] { return static_cast<double>(draw.Whole(0, 4)); };
        const gsl_BBox a(gsl_Point(whole(), whole(), whole()),
                         gsl_Point(whole() + 1, whole() + 1, whole() + 1));
        const gsl_BBox b(gsl_Point(whole(), whole(), whole()),
                         gsl_Point(whole() + 1, whole() + 1, whole() + 1));
        bool shared = false;
        bool allOfB = !b.IsEmpty();
        for (int cell = 0; cell < 6 * 6 * 6; ++cell)
        {
            const gsl_Point p(cell % 6, cell / 6 % 6, cell / 36);
            shared = shared || (a.ContainsPoint(p) && b.ContainsPoint(p));
            allOfB = allOfB && (a.ContainsPoint(p) || !b.ContainsPoint(p));
        }
        ASSERT_EQ(a.Intersect(b), shared);
        ASSERT_EQ(a.ContainsBox(b), allOfB);
        meet += shared ? 1 : 0;
    }
    EXPECT_GT(meet, DRAWS / 20);
    EXPECT_LT(meet, 9 * DRAWS / 10);
}

TEST(BBox, Measures)
{
    const gsl_BBox box(gsl_Point(1, 2, 3), gsl_Point(3, 5, 9));
    EXPECT_EQ(box.XLen(), 2.0);
    EXPECT_EQ(box.YLen(), 3.0);
    EXPECT_EQ(box.ZLen(), 6.0);
    EXPECT_EQ(box.Size(), 7.0);
    EXPECT_TRUE(Same(box.Diag(), gsl_Vector(2, 3, 6)));
    EXPECT_TRUE(Same(box.Center(), gsl_Point(2, 3.5, 6)));
    double low[3];
    double high[3];
    box.GetExtent(low, high);
    EXPECT_TRUE(Same(gsl_Point(low), box.Low()));
    EXPECT_TRUE(Same(gsl_Point(high), box.High()));
    EXPECT_EQ(gsl_BBox(gsl_Point(4, 4, 4)).Size(), 0.0);
}

// The transformed box holds the image of every point of the box, and each of its sides is touched by one.
TEST(BBox, TransformIsTheTightBoxOfTheImages)
{
    GeometryDraw draw(61);
    for (int i = 0; i < 500; ++i)
    {
        gsl_BBox box(draw.Point(10));
        box.Add(draw.Point(10));
        gsl_Matrix matrix;
        for (int r = 0; r < 3; ++r)
        {
            for (int c = 0; c < 4; ++c)
            {
                matrix.Set(r, c, draw.Number(-2, 2));
            }
        }
        gsl_BBox moved = box;
        moved.Transform(matrix);
        double low[3] = {1e9, 1e9, 1e9};
        double high[3] = {-1e9, -1e9, -1e9};
        for (int x = 0; x <= 2; ++x)
        {
            for (int y = 0; y <= 2; ++y)
            {
                for (int z = 0; z <= 2; ++z)
                {
                    const gsl_Point image = matrix.Transform(gsl_Point(box.Low().X() + box.XLen() * x / 2,
                                                                       box.Low().Y() + box.YLen() * y / 2,
                                                                       box.Low().Z() + box.ZLen() * z / 2));
                    for (int k = 0; k < 3; ++k)
                    {
                        low[k] = std::min(low[k], image[k]);
                        high[k] = std::max(high[k], image[k]);
                    }
                }
            }
        }
        ASSERT_TRUE(Near(moved.Low(), gsl_Point(low), 1e-12));
        ASSERT_TRUE(Near(moved.High(), gsl_Point(high), 1e-12));
    }
}

TEST(BBox, IdentityTransformKeepsEveryBit)
{
    gsl_BBox box(gsl_Point(-0.0, 0.1, -1e308), gsl_Point(0.3, 1e308, 0.0));
    box.Transform(gsl_Matrix());
    EXPECT_TRUE(std::signbit(box.Low().X()));
    EXPECT_TRUE(HasCorners(box, gsl_Point(0, 0.1, -1e308), gsl_Point(0.3, 1e308, 0)));
}

TEST(BBox, SphereHoldsAllEightCorners)
{
    const gsl_BBox box(gsl_Point(1, 2, 2), gsl_Point(3, 3, 3));
    // The farthest corner of this box from the origin is 3 sqrt 3 away; from (2, 2.5, 2.5) sqrt 1.5.
    EXPECT_TRUE(box.SphereContainsBox(g3d_Sphere(0, 0, 0, 5.1962)));
    EXPECT_FALSE(box.SphereContainsBox(g3d_Sphere(0, 0, 0, 5.1961)));
    EXPECT_TRUE(gsl_BBox(gsl_Point(-2, 0, 0), gsl_Point(2, 0, 0)).SphereContainsBox(g3d_Sphere(0, 0, 0, 2)));
    EXPECT_TRUE(gsl_BBox(gsl_Point(1, 1, 1)).SphereContainsBox(g3d_Sphere(1, 1, 1, 0)));
    EXPECT_FALSE(gsl_BBox(gsl_Point(1, 1, 1)).SphereContainsBox(g3d_Sphere(1, 1, 1, -1)));
    GeometryDraw draw(62);
    int inside = 0;
    for (int i = 0; i < 3000; ++i)
    {
        gsl_BBox some(draw.Point(5));
        some.Add(draw.Point(5));
        const gsl_Point c = draw.Point(5);
        const double radius = draw.Number(0, 15);
        bool all = true;
        for (int corner = 0; corner < 8; ++corner)
        {
            const gsl_Point p((corner & 1) ? some.High().X() : some.Low().X(),
                              (corner & 2) ? some.High().Y() : some.Low().Y(),
                              (corner & 4) ? some.High().Z() : some.Low().Z());
            all = all && p.GetDistance(c) <= radius;
        }
        ASSERT_EQ(some.SphereContainsBox(g3d_Sphere(c.X(), c.Y(), c.Z(), radius)), all);
        inside += all ? 1 : 0;
    }
    EXPECT_GT(inside, 300);
    EXPECT_LT(inside, 2700);
}

TEST(BBox, EqualityIsTheCorners)
{
    const gsl_BBox box(gsl_Point(0, 0, 0), gsl_Point(1, 1, 1));
    EXPECT_TRUE(box == gsl_BBox(gsl_Point(1e-6, 0, 0), gsl_Point(1, 1, 1)));
    EXPECT_TRUE(box != gsl_BBox(gsl_Point(1.1e-6, 0, 0), gsl_Point(1, 1, 1)));
    EXPECT_TRUE(box != gsl_BBox(gsl_Point(0, 0, 0), gsl_Point(1, 1, 1.01)));
}

TEST(BBox, PrintsTwoIndentedLines)
{
    std::ostringstream text;
    gsl_BBox(gsl_Point(1, 2, 3), gsl_Point(4, 5, 6)).Print(text, 2);
    EXPECT_EQ(text.str(), "  low:\t1\ty:\t2\tz:\t3\n  high:\t4\ty:\t5\tz:\t6\n");
}
}
