// Boxes: bounds by axis and sign, all relations of a pair at once, and the empty box in every operation.
#include <testing/GeometryTesting.h>

#include <g3d_Sphere.h>
#include <gsl_BBox.h>
#include <gsl_Matrix.h>
#include <sstream>

namespace
{
using namespace geometry;

bool HasCorners(const gsl_BBox& box, const gsl_Point& low, const gsl_Point& high)
{
    return Same(box.Low(), low) && Same(box.High(), high);
}

gsl_Point Corner(const gsl_BBox& box, int corner)
{
    return {((corner & 1) ? box.High() : box.Low()).X(), ((corner & 2) ? box.High() : box.Low()).Y(),
            ((corner & 4) ? box.High() : box.Low()).Z()};
}

TEST(BBoxEmpty, InEveryOperation)
{
    gsl_BBox vacated(gsl_Point(5, 5, 5));
    EXPECT_FALSE(vacated.IsEmpty());
    vacated.Vacate();
    EXPECT_TRUE(HasCorners(vacated, ORIGIN, gsl_Point(-1, -1, -1)));
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(100, 0, 0));
    for (const gsl_BBox& empty : {gsl_BBox(), vacated, gsl_BBox(OnAxis(0, 2, 0), OnAxis(0, 1, 4)),
                                  gsl_BBox(OnAxis(1, 2, 0), OnAxis(1, 1, 4)),
                                  gsl_BBox(gsl_Point(1, 1, 1), gsl_Point(9, 9, std::nextafter(1.0, 0.0)))})
    {
        EXPECT_TRUE(empty.IsEmpty());
        EXPECT_FALSE(empty.ContainsPoint(empty.Low()) || empty.Intersect(ORIGIN) ||
                     empty.SphereContainsBox(g3d_Sphere(0, 0, 0, 1000)));
        EXPECT_TRUE(Same(empty.Diag(), gsl_Vector()));
        EXPECT_EQ(empty.Size() + std::abs(empty.XLen()) + std::abs(empty.YLen()) + std::abs(empty.ZLen()), 0);
        EXPECT_TRUE(empty == gsl_BBox() && empty != gsl_BBox(ORIGIN));
        gsl_BBox turned = empty;
        turned.Transform(moved);
        EXPECT_TRUE(turned.IsEmpty());
        gsl_BBox filled = empty;
        filled.Add(gsl_Point(7, 8, 9));
        EXPECT_TRUE(HasCorners(filled, gsl_Point(7, 8, 9), gsl_Point(7, 8, 9)));
    }
}

TEST(BBox, BoundsAreInclusiveOnEveryAxisAndSide)
{
    const gsl_BBox box(gsl_Point(1, 1, 1), gsl_Point(2, 2, 2));
    for (int axis = 0; axis < 3; ++axis)
        for (const double bound : {1.0, 2.0})
        {
            const gsl_Point inside = OnAxis(axis, bound, 1.5);
            const gsl_Point outside = OnAxis(axis, std::nextafter(bound, 4 * bound - 5), 1.5);
            EXPECT_TRUE(box.ContainsPoint(inside) && box.Intersect(inside)) << axis << " " << bound;
            EXPECT_FALSE(box.ContainsPoint(outside) || box.Intersect(outside)) << axis << " " << bound;
            gsl_BBox wider = box;
            wider.Add(OnAxis(axis, 5 * bound - 6, 1.5));
            EXPECT_TRUE(
                HasCorners(wider, OnAxis(axis, bound == 1 ? -1 : 1, 1), OnAxis(axis, bound == 1 ? 2 : 4, 2)));
            EXPECT_TRUE(wider.Low().Uid() == box.Low().Uid() && wider.High().Uid() == box.High().Uid());
        }
}

// On a grid, where touching is frequent and some are empty: told by the points that both contain.
TEST(BBox, RelationsAreThoseOfTheirPoints)
{
    GeometryDraw draw(60);
    int meet = 0;
    int inside = 0;
    for (int i = 0; i < 3000; ++i)
    {
        gsl_BBox boxes[2];
        for (gsl_BBox& box : boxes)
        {
            const gsl_Point low(draw.Whole(0, 3), draw.Whole(0, 3), draw.Whole(0, 3));
            const int least = draw.Whole(-7, 0) / 7; // now and then one that is empty
            box =
                gsl_BBox(low, low + gsl_Vector(draw.Whole(least, 3), draw.Whole(least, 3), draw.Whole(0, 3)));
        }
        const auto& [a, b] = boxes;
        bool shared = false;
        bool allOfB = !b.IsEmpty();
        gsl_BBox hull;
        for (int cell = 0; cell < 7 * 7 * 7; ++cell)
        {
            const gsl_Point p(cell % 7, cell / 7 % 7, cell / 49);
            shared = shared || (a.ContainsPoint(p) && b.ContainsPoint(p));
            allOfB = allOfB && (a.ContainsPoint(p) || !b.ContainsPoint(p));
            if (a.ContainsPoint(p) || b.ContainsPoint(p))
                hull.Add(p);
        }
        ASSERT_EQ(a.Intersect(b), shared);
        ASSERT_EQ(b.Intersect(a), shared);
        ASSERT_EQ(a.ContainsBox(b), allOfB);
        gsl_BBox both = a;
        both.Add(b);
        ASSERT_TRUE(both == hull);
        meet += shared;
        inside += allOfB;
    }
    EXPECT_GT(meet, 300);
    EXPECT_LT(meet, 2700);
    EXPECT_GT(inside, 20);
}

TEST(BBox, Measures)
{
    const gsl_BBox box(gsl_Point(1, 2, 3), gsl_Point(3, 5, 9));
    EXPECT_TRUE(box.XLen() == 2.0 && box.YLen() == 3.0 && box.ZLen() == 6.0 && box.Size() == 7.0);
    EXPECT_TRUE(Same(box.Diag(), gsl_Vector(2, 3, 6)) && Same(box.Center(), gsl_Point(2, 3.5, 6)));
    double low[3];
    double high[3];
    box.GetExtent(low, high);
    EXPECT_TRUE(HasCorners(box, gsl_Point(low), gsl_Point(high)));
    EXPECT_TRUE(box == gsl_BBox(gsl_Point(1, 2, 3), gsl_Point(3, 5, 9 + 0.9e-6)));
    EXPECT_TRUE(box != gsl_BBox(gsl_Point(1, 2, 3), gsl_Point(3, 5, 9 + 1.1e-6)));
    EXPECT_TRUE(box != gsl_BBox(gsl_Point(1, 2 - 1.1e-6, 3), gsl_Point(3, 5, 9)));
    std::ostringstream text;
    box.Print(text, 2);
    EXPECT_EQ(text.str(), "  low:\t1\ty:\t2\tz:\t3\n  high:\t3\ty:\t5\tz:\t9\n");
}

TEST(BBox, TransformIsTheBoxOfTheEightImages)
{
    GeometryDraw draw(61);
    for (int i = 0; i < 300; ++i)
    {
        gsl_BBox box(draw.Point(10));
        box.Add(draw.Point(10));
        gsl_Matrix matrix;
        for (int k = 0; k < 12; ++k)
            matrix.Set(k / 4, k % 4, draw.Number(-2, 2));
        gsl_BBox images;
        for (int corner = 0; corner < 8; ++corner)
            images.Add(matrix.Transform(Corner(box, corner)));
        box.Transform(matrix);
        ASSERT_TRUE(Near(box.Low(), images.Low(), 1e-12) && Near(box.High(), images.High(), 1e-12));
    }
    gsl_BBox kept(gsl_Point(-0.0, 0.1, -1e308), gsl_Point(0.3, 1e308, 0.0));
    kept.Transform(gsl_Matrix());
    EXPECT_TRUE(std::signbit(kept.Low().X())) << "the identity keeps every bit";
}

TEST(BBox, SphereHoldsAllEightCorners)
{
    EXPECT_TRUE(gsl_BBox(gsl_Point(-2, 0, 0), gsl_Point(2, 0, 0)).SphereContainsBox(g3d_Sphere(0, 0, 0, 2)));
    const gsl_BBox box(gsl_Point(1, 2, 2), gsl_Point(3, 3, 3)); // its farthest corner is 3 sqrt 3 away
    EXPECT_TRUE(box.SphereContainsBox(g3d_Sphere(0, 0, 0, 5.1962)) &&
                box.SphereContainsBox(g3d_Sphere(4, 5, 5, 5.1962)));
    EXPECT_FALSE(box.SphereContainsBox(g3d_Sphere(0, 0, 0, 5.1961)) ||
                 box.SphereContainsBox(g3d_Sphere(4, 5, 5, 5.1961)));
}
}
