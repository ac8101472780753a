// Where the tree puts a triangle, and how it prints itself. The placement is held against the rule written
// out over all slots of all levels, which the tree itself never makes.
#include <testing/SetDraw.h>

#include <cstdlib>
#include <gsl_ModOctreeNode.h>
#include <string>

namespace
{
using namespace testing_sets;
using Path = std::vector<int>;
const gsl_BBox EIGHT(gsl_Point(0, 0, 0), gsl_Point(8, 8, 8));

bool Put(gsl_TriOctree& tree, const Triangle& t, int index = 0)
{
    return tree.Root()->Add(Of(t[0]), Of(t[1]), Of(t[2]), index);
}

/// The slots that lead from a node to where the index lives, ending in -1; nothing where it does not.
Path PathTo(const gsl_TriOctreeNode& node, int index)
{
    if (node.Triangles().Find(index) >= 0)
        return {-1};
    for (int slot = 0; slot < node.GetChildCount(); ++slot)
        if (const gsl_TriOctreeNode* child = node.Child(slot))
            if (Path path = PathTo(*child, index); !path.empty())
            {
                path.insert(path.begin(), slot);
                return path;
            }
    return {};
}

// The rule as it is written: every slot's box in order, the first that holds all corners.
Path PathByRule(const Triangle& t, const Point& low, const Point& high, int slots, int levels)
{
    for (int slot = 0; slot < slots && levels > 1; ++slot)
    {
        Point from = low;
        Point to = high;
        for (std::size_t k = 0; k < 3; ++k)
        {
            const int axis = static_cast<int>(k);
            const double middle = (low[k] + high[k]) * 0.5;
            const bool lower = slot < 8 ? ((slot >> axis) & 1) == 0 : slot == 8 + 2 * axis;
            const bool upper = slot < 8 ? ((slot >> axis) & 1) == 1 : slot == 9 + 2 * axis;
            to[k] = lower ? middle : high[k];
            from[k] = upper ? middle : low[k];
        }
        const gsl_BBox box(Of(from), Of(to));
        if (box.ContainsPoint(Of(t[0])) && box.ContainsPoint(Of(t[1])) && box.ContainsPoint(Of(t[2])))
        {
            Path path = PathByRule(t, from, to, slots, levels - 1);
            path.insert(path.begin(), slot);
            return path;
        }
    }
    return {-1};
}

TEST(TriOctree, PlacesLikeTheRuleOnAllLevels)
{
    GeometryDraw draw(621);
    for (const auto& [type, slots] : {std::pair(OCT, 8), {MOD, 14}})
        for (int depth = 1; depth <= 7; ++depth)
        {
            gsl_TriOctree tree(EIGHT, "", type, depth);
            for (int i = 0; i < 300; ++i)
            {
                const double size = std::pow(2.0, draw.Whole(-5, 2));
                Triangle t{};
                for (std::size_t k = 0; k < 3; ++k)
                {
                    // Half of the corners on split planes of some level.
                    const double at = draw.Coin() ? draw.Whole(0, 64) / 8.0 : draw.Number(0, 8);
                    for (Point& p : t)
                        p[k] = std::clamp(at + (draw.Coin() ? size : 0.0), 0.0, 8.0);
                }
                ASSERT_TRUE(Put(tree, t, i));
                ASSERT_EQ(PathTo(*tree.Root(), i), PathByRule(t, {0, 0, 0}, {8, 8, 8}, slots, depth))
                    << "triangle " << i << ", depth " << depth << ", slots " << slots;
            }
            EXPECT_EQ(tree.Root()->TriangleCount(), 300);
        }
}

TEST(TriOctree, CornerOutsideIsRefused)
{
    gsl_TriOctree tree(EIGHT, "", MOD, 4);
    for (const double x : {8.0000001, -1e-300, std::nan("")})
        EXPECT_FALSE(Put(tree, {{{0, 0, 0}, {1, x, 0}, {0, 1, 0}}}));
    EXPECT_TRUE(tree.Root()->IsEmpty());
    gsl_TriOctree empty(gsl_BBox(), "", OCT, 4);
    EXPECT_FALSE(Put(empty, {}));
}

// Without an end the depth given here would be a stack overflow.
TEST(TriOctree, BoxThatNoLongerShrinksIsRepeatedToAnEnd)
{
    gsl_TriOctree point(gsl_BBox(gsl_Point(1, 2, 3)), "", MOD, 1000000);
    ASSERT_TRUE(Put(point, {{{1, 2, 3}, {1, 2, 3}, {1, 2, 3}}}));
    EXPECT_LT(PathTo(*point.Root(), 0).size(), 100u);
}

TEST(TriOctree, PrintsTheWholeText)
{
    gsl_TriOctree tree(EIGHT, "Rail", OCT, 3);
    const auto fill = [&](double low, double high, int index) {
        return Put(tree, {{{low, low, high}, {high, low, low}, {low, high, low}}}, index);
    };
    // The last is below octant 7, which has no triangle of its own: on purpose not shown.
    ASSERT_TRUE(fill(3, 5, 0) && fill(1, 3, 1) && fill(0, 1, 2) && fill(7, 8, 3));
    char* text = nullptr;
    std::size_t size = 0;
    FILE* stream = open_memstream(&text, &size);
    tree.Print(stream);
    std::fclose(stream);
    EXPECT_EQ(std::string(text, size), "Root id: Rail, Max Depth: 3\n"
                                       " Level: 1\n"
                                       "  Index: -1, # of triangles: 1\n"
                                       "  Low(0.000000, 0.000000, 0.000000)\n"
                                       "  High(8.000000, 8.000000, 8.000000)\n"
                                       " Level: 2\n"
                                       "  Index: 0, # of triangles: 1\n"
                                       "  Low(0.000000, 0.000000, 0.000000)\n"
                                       "  High(4.000000, 4.000000, 4.000000)\n"
                                       " Level: 3\n"
                                       "  Index: 0, # of triangles: 1\n"
                                       "  Low(0.000000, 0.000000, 0.000000)\n"
                                       "  High(2.000000, 2.000000, 2.000000)\n");
    std::free(text);
}
}
