// Boxes: bounds by axis and sign, all relations of a pair at once, and the empty box in every operation.
#include <testing/GeometryTesting.h>

#include <g3d_Sphere.h>
#include <gsl_BBox.h>
#include <sstream>

namespace
{
using namespace geometry;

TEST(BBoxEmpty, InEveryOperation)
{
    for (const gsl_BBox& empty : {gsl_BBox(), gsl_BBox(OnAxis(0, 2, 0), OnAxis(0, 1, 4)),
                                  gsl_BBox(gsl_Point(1, 1, 1), gsl_Point(9, 9, std::nextafter(1.0, 0.0)))})
    {
        EXPECT_TRUE(empty.IsEmpty());
        EXPECT_FALSE(empty.ContainsPoint(empty.Low()) || empty.Intersect(ORIGIN) ||
                     empty.SphereContainsBox(g3d_Sphere(0, 0, 0, 1000)));
        EXPECT_TRUE(Same(empty.Diag(), gsl_Vector()) && empty.Size() == 0);
        EXPECT_TRUE(empty == gsl_BBox() && empty != gsl_BBox(ORIGIN));
        gsl_BBox filled = empty;
        filled.Add(gsl_Point(7, 8, 9));
        EXPECT_TRUE(filled == gsl_BBox(gsl_Point(7, 8, 9)));
    }
}

// On a grid, where touching is frequent and some are empty: told by the points that both contain.
TEST(BBox, RelationsAreThoseOfTheirPoints)
{
    GeometryDraw draw(60);
    int meet = 0;
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
        ASSERT_TRUE(a.Intersect(b) == shared && b.Intersect(a) == shared && a.ContainsBox(b) == allOfB);
        gsl_BBox both = a;
        both.Add(b);
        ASSERT_TRUE(both == hull);
        meet += shared;
    }
    EXPECT_GT(meet, 300);
    EXPECT_LT(meet, 2700);
}

TEST(BBox, Measures)
{
    const gsl_BBox box(gsl_Point(1, 2, 3), gsl_Point(3, 5, 9));
    EXPECT_TRUE(Same(box.Diag(), gsl_Vector(2, 3, 6)) && box.Size() == 7.0);
    EXPECT_TRUE(box == gsl_BBox(gsl_Point(1, 2, 3), gsl_Point(3, 5, 9 + 0.9e-6)));
    EXPECT_TRUE(box != gsl_BBox(gsl_Point(1, 2, 3), gsl_Point(3, 5, 9 + 1.1e-6)));
    // The farthest corner decides whether a sphere holds the box.
    EXPECT_TRUE(box.SphereContainsBox(g3d_Sphere(0, 0, 0, 10.7239)));
    EXPECT_FALSE(box.SphereContainsBox(g3d_Sphere(0, 0, 0, 10.7238)));
    std::ostringstream text;
    box.Print(text, 2);
    EXPECT_EQ(text.str(), "  low:\t1\ty:\t2\tz:\t3\n  high:\t3\ty:\t5\tz:\t9\n");
}
}
