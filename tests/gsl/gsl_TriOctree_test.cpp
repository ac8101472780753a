// Where the tree puts a triangle, and how it prints itself. The placement is held against the rule written
// out over all slots of all levels, which the tree itself never makes.
#include <testing/CommaLocale.h>
#include <testing/GeometryTesting.h>
#include <testing/SetSearch.h>

#include <cstdlib>
#include <gsl_ModOctreeNode.h>
#include <nex_RangeException.h>
#include <set>
#include <string>

namespace
{
using testing_sets::Of;
using testing_sets::Point;
using testing_sets::Set;
using testing_sets::Triangle;
using Path = std::vector<int>;
constexpr auto OCT = gsl_TriOctree::gsl_OCTREE;
constexpr auto MOD = gsl_TriOctree::gsl_MODOCTREE;
const gsl_BBox EIGHT(gsl_Point(0, 0, 0), gsl_Point(8, 8, 8));

bool Put(gsl_TriOctree& tree, const Triangle& t, int index)
{
    return tree.Root()->Add(Of(t[0]), Of(t[1]), Of(t[2]), index);
}

/// Small triangle that fills the box from low to high.
Triangle Filling(const Point& low, const Point& high)
{
    return {low, {high[0], low[1], high[2]}, {low[0], high[1], low[2]}};
}

std::string Printed(const gsl_TriOctree& tree)
{
    char* text = nullptr;
    std::size_t size = 0;
    FILE* stream = open_memstream(&text, &size);
    tree.Print(stream);
    std::fclose(stream);
    std::string printed(text, size);
    std::free(text);
    return printed;
}

/// The slots that lead from the root to where the index lives.
bool Find(const gsl_TriOctreeNode& node, int index, Path& path)
{
    if (node.Triangles().Find(index) >= 0)
        return true;
    for (int slot = 0; slot < node.GetChildCount(); ++slot)
    {
        if (const gsl_TriOctreeNode* child = node.Child(slot))
        {
            path.push_back(slot);
            if (Find(*child, index, path))
                return true;
            path.pop_back();
        }
    }
    return false;
}

Path PathTo(const gsl_TriOctree& tree, int index)
{
    Path path;
    EXPECT_TRUE(Find(*tree.Root(), index, path)) << index;
    return path;
}

int Nodes(const gsl_TriOctreeNode& node)
{
    int count = 1;
    for (int slot = 0; slot < node.GetChildCount(); ++slot)
        if (const gsl_TriOctreeNode* child = node.Child(slot))
            count += Nodes(*child);
    return count;
}

// The rule as it is written: every slot's box in order, the first that holds all corners.
Path PathByRule(const Triangle& t, Point low, Point high, int slots, int maxDepth)
{
    Path path;
    for (int level = 1; level < maxDepth; ++level)
    {
        int taken = -1;
        for (int slot = 0; slot < slots && taken < 0; ++slot)
        {
            Point from = low;
            Point to = high;
            for (int axis = 0; axis < 3; ++axis)
            {
                const auto k = static_cast<std::size_t>(axis);
                const double m = (low[k] + high[k]) * 0.5;
                const bool lower = slot < 8 ? ((slot >> axis) & 1) == 0 : slot == 8 + 2 * axis;
                const bool upper = slot < 8 ? ((slot >> axis) & 1) == 1 : slot == 9 + 2 * axis;
                to[k] = lower ? m : high[k];
                from[k] = upper ? m : low[k];
            }
            const gsl_BBox box(Of(from), Of(to));
            if (box.ContainsPoint(Of(t[0])) && box.ContainsPoint(Of(t[1])) && box.ContainsPoint(Of(t[2])))
            {
                taken = slot;
                low = from;
                high = to;
            }
        }
        if (taken < 0)
            break;
        path.push_back(taken);
    }
    return path;
}

TEST(TriOctree, RootHasTheWholeBox)
{
    for (const auto& [type, slots] : {std::pair(OCT, 8), {MOD, 14}})
    {
        const gsl_TriOctree tree(EIGHT, "Rail", type, 5);
        EXPECT_EQ(tree.GetChildCount(), slots);
        EXPECT_EQ(tree.MaxDepth(), 5);
        EXPECT_EQ(tree.Id(), cow_String("Rail"));
        EXPECT_EQ(tree.Root()->Level(), 1);
        EXPECT_EQ(tree.Root()->Index(), -1);
        EXPECT_EQ(tree.Root()->Parent(), nullptr);
        EXPECT_TRUE(tree.Root()->Box() == EIGHT);
        EXPECT_TRUE(tree.Root()->IsEmpty());
        EXPECT_EQ(dynamic_cast<const gsl_ModOctreeNode*>(tree.Root()) != nullptr, type == MOD);
    }
}

TEST(TriOctree, PlacesLikeTheRuleOnAllLevels)
{
    GeometryDraw draw(621);
    for (const auto& [type, slots] : {std::pair(OCT, 8), {MOD, 14}})
    {
        for (int depth = 1; depth <= 7; ++depth)
        {
            gsl_TriOctree tree(EIGHT, "", type, depth);
            Set set;
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
                set.push_back(t);
                ASSERT_TRUE(Put(tree, t, i));
            }
            for (int i = 0; i < 300; ++i)
                ASSERT_EQ(PathTo(tree, i),
                          PathByRule(set[static_cast<std::size_t>(i)], {0, 0, 0}, {8, 8, 8}, slots, depth))
                    << "triangle " << i << ", depth " << depth << ", slots " << slots;
            EXPECT_EQ(tree.Root()->TriangleCount(), 300);
            EXPECT_TRUE(tree.Root()->IsEmpty(-1) && tree.Root()->IsEmpty(slots));
            EXPECT_EQ(tree.Root()->IsEmpty(0), depth == 1);
            EXPECT_EQ(tree.Root()->IsDivided(), depth > 1);
        }
    }
}

TEST(TriOctree, CornerOutsideIsRefused)
{
    gsl_TriOctree tree(EIGHT, "", MOD, 4);
    const std::uint64_t before = tree.Root()->Stamp();
    const double nan = std::nan("");
    EXPECT_FALSE(Put(tree, {{{0, 0, 0}, {1, 0, 0}, {0, 8.0000001, 0}}}, 1));
    EXPECT_FALSE(Put(tree, {{{-1e-300, 0, 0}, {1, 0, 0}, {0, 1, 0}}}, 1));
    EXPECT_FALSE(Put(tree, {{{nan, 0, 0}, {1, 0, 0}, {0, 1, 0}}}, 1));
    EXPECT_FALSE(Put(tree, {{{0, 0, 0}, {1, nan, 0}, {0, 1, 0}}}, 1));
    EXPECT_TRUE(tree.Root()->IsEmpty());
    EXPECT_EQ(tree.Root()->Stamp(), before);
    gsl_TriOctree empty(gsl_BBox(), "", OCT, 4);
    EXPECT_FALSE(Put(empty, {{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}}, 1));
}

TEST(TriOctree, MemoryFollowsTheTriangles)
{
    // Eight to the power of nineteen nodes, were they all made.
    gsl_TriOctree tree(EIGHT, "", OCT, 20);
    GeometryDraw draw(5);
    for (int i = 0; i < 100; ++i)
    {
        const Point at{draw.Number(0, 8), draw.Number(0, 8), draw.Number(0, 8)};
        ASSERT_TRUE(Put(tree, {at, at, at}, i));
    }
    EXPECT_LE(Nodes(*tree.Root()), 1 + 100 * 19);
    EXPECT_EQ(PathTo(tree, 99).size(), 19u);
}

TEST(TriOctree, BoxThatNoLongerShrinksIsRepeatedToAnEnd)
{
    gsl_TriOctree flat(gsl_BBox(gsl_Point(0, 0, 0), gsl_Point(8, 8, 0)), "", MOD, 4);
    ASSERT_TRUE(Put(flat, {{{1, 1, 0}, {7, 1, 0}, {1, 7, 0}}}, 0));
    EXPECT_EQ(PathTo(flat, 0), (Path{12, 12, 12}));
    // Without an end the depth given here would be a stack overflow.
    gsl_TriOctree point(gsl_BBox(gsl_Point(1, 2, 3)), "", MOD, 1000000);
    ASSERT_TRUE(Put(point, {{{1, 2, 3}, {1, 2, 3}, {1, 2, 3}}}, 0));
    EXPECT_LT(PathTo(point, 0).size(), 100u);
    gsl_TriOctree corner(EIGHT, "", OCT, 1000000);
    ASSERT_TRUE(Put(corner, {{{8, 8, 8}, {8, 8, 8}, {8, 8, 8}}}, 0));
    EXPECT_LT(PathTo(corner, 0).size(), 100u);
}

TEST(TriOctree, StampsNameTheContents)
{
    gsl_TriOctree tree(EIGHT, "", OCT, 3);
    const gsl_TriOctree other(EIGHT, "", OCT, 3);
    std::set<std::uint64_t> seen{tree.Root()->Stamp(), other.Root()->Stamp()};
    EXPECT_EQ(seen.size(), 2u);
    ASSERT_TRUE(Put(tree, Filling({0, 0, 0}, {1, 1, 1}), 0));
    ASSERT_TRUE(Put(tree, Filling({7, 7, 7}, {8, 8, 8}), 1));
    EXPECT_TRUE(seen.insert(tree.Root()->Stamp()).second);

    gsl_TriOctreeNode* root = tree.Root();
    const std::uint64_t whole = root->Stamp();
    const std::uint64_t touched = root->Child(0)->Stamp();
    const std::uint64_t sibling = root->Child(7)->Stamp();
    ASSERT_TRUE(Put(tree, Filling({0, 0, 0}, {2, 2, 2}), 2));
    EXPECT_NE(root->Stamp(), whole);
    EXPECT_NE(root->Child(0)->Stamp(), touched);
    EXPECT_EQ(root->Child(7)->Stamp(), sibling);
}

TEST(TriOctree, AddBelowTheRootIsNotedAbove)
{
    gsl_TriOctreeNode root(EIGHT, 1, -1, nullptr);
    root.BuildOctree(EIGHT, 3);
    auto* child = new gsl_TriOctreeNode(gsl_BBox(gsl_Point(0, 0, 0), gsl_Point(4, 4, 4)), 2, 0, &root);
    root.Build(0, child, 3);
    const std::uint64_t before = root.Stamp();
    EXPECT_TRUE(root.IsEmpty());
    ASSERT_TRUE(child->Add({0, 0, 0}, {3, 0, 0}, {0, 3, 0}, 4));
    EXPECT_NE(root.Stamp(), before);
    EXPECT_EQ(root.TriangleCount(), 1);
    EXPECT_FALSE(root.IsEmpty(0));
    EXPECT_FALSE(child->Add({0, 0, 0}, {5, 0, 0}, {0, 3, 0}, 5));
    EXPECT_EQ(root.TriangleCount(), 1);
}

TEST(TriOctree, BuildSplitsTheChildsOwnBox)
{
    gsl_TriOctreeNode root(EIGHT, 1, -1, nullptr);
    const gsl_BBox odd(gsl_Point(1, 1, 1), gsl_Point(7, 7, 7));
    gsl_TriOctreeNode leaf(EIGHT, 1, -1, nullptr);
    gsl_TriOctreeNode kept(odd, 2, 5, &leaf);
    leaf.Build(5, &kept, 3); // a leaf takes no child: kept stays ours
    EXPECT_EQ(leaf.Child(5), nullptr);

    root.BuildOctree(EIGHT, 3);
    root.Build(5, nullptr, 3);
    EXPECT_EQ(root.Child(5), nullptr);
    EXPECT_THROW(root.Build(8, &kept, 3), nex_RangeException);
    root.Build(5, new gsl_TriOctreeNode(odd, 2, 5, &root), 3);
    // Octants 0 to 4 are offered the triangle before the odd box in slot 5, which then splits at its own
    // centre.
    ASSERT_TRUE(root.Add({2, 2, 2}, {6, 3, 3}, {2, 3, 2}, 1));
    ASSERT_TRUE(root.Add({1, 1, 1}, {2, 1, 1}, {1, 2, 1}, 2));
    ASSERT_TRUE(root.Add({5, 1, 1}, {6, 1, 1}, {5, 2, 1}, 3));
    ASSERT_TRUE(root.Add({5, 1, 5}, {6, 1, 5}, {5, 2, 5}, 4));
    EXPECT_EQ(root.Child(5)->Triangles(), (cow_List<int>{1}));
    EXPECT_FALSE(root.IsEmpty(0));
    EXPECT_FALSE(root.IsEmpty(1));
    ASSERT_NE(root.Child(5)->Child(5), nullptr);
    EXPECT_EQ(root.Child(5)->Child(5)->Triangles(), (cow_List<int>{4}));
    EXPECT_TRUE(root.Child(5)->Child(5)->Box() == gsl_BBox(gsl_Point(4, 1, 4), gsl_Point(7, 4, 7)));
    EXPECT_EQ(root.TriangleCount(), 4);

    root.Build(5, new gsl_TriOctreeNode(odd, 2, 5, &root), 3); // the former child goes with what it held
    EXPECT_EQ(root.TriangleCount(), 2);
    root.BuildOctree(EIGHT, 3);
    EXPECT_TRUE(root.IsEmpty());
}

TEST(TriOctree, BuildOctreeOverAnotherBoxMakesItsOctants)
{
    gsl_TriOctreeNode root(EIGHT, 1, -1, nullptr);
    root.BuildOctree(gsl_BBox(gsl_Point(0, 0, 0), gsl_Point(4, 4, 4)), 2);
    ASSERT_NE(root.Child(7), nullptr);
    EXPECT_TRUE(root.Child(7)->Box() == gsl_BBox(gsl_Point(2, 2, 2), gsl_Point(4, 4, 4)));
    ASSERT_TRUE(root.Add({5, 5, 5}, {6, 5, 5}, {5, 6, 5}, 1));
    EXPECT_EQ(root.Triangles(), (cow_List<int>{1}));
}

TEST(TriOctree, TransformBBoxTakesTheEightCorners)
{
    gsl_Matrix turn;
    ASSERT_TRUE(turn.AxisRotation({0, 0, 1}, std::acos(-1.0) / 4));
    turn.SetTranslation({10, 0, 0});
    const gsl_TriOctree tree(EIGHT, "", OCT, 2);
    const gsl_BBox box = tree.Root()->TransformBBox(turn);
    EXPECT_TRUE(Near(box.Low(), gsl_Point(10 - 8 * std::sqrt(0.5), 0, 0), 1e-12));
    EXPECT_TRUE(Near(box.High(), gsl_Point(10 + 8 * std::sqrt(0.5), 8 * std::sqrt(2.0), 8), 1e-12));
    EXPECT_TRUE(tree.Root()->Box() == EIGHT);
}

TEST(TriOctree, PrintsTheWholeText)
{
    gsl_TriOctree tree(EIGHT, "Rail", OCT, 3);
    ASSERT_TRUE(Put(tree, Filling({3, 3, 3}, {5, 5, 5}), 0));
    ASSERT_TRUE(Put(tree, Filling({1, 1, 1}, {3, 3, 3}), 1));
    ASSERT_TRUE(Put(tree, Filling({0, 0, 0}, {1, 1, 1}), 2));
    // Below octant 7, which has no triangle of its own: on purpose not shown.
    ASSERT_TRUE(Put(tree, Filling({7, 7, 7}, {8, 8, 8}), 3));
    EXPECT_EQ(Printed(tree), "Root id: Rail, Max Depth: 3\n"
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
}

TEST(TriOctree, PrintIsTheSameInEveryLocale)
{
    const gsl_TriOctree tree(gsl_BBox(gsl_Point(-0.5, 0, 1e20), gsl_Point(0.25, 1.0 / 3, 1e20)), "", MOD, 2);
    const char* expected = "Root id: , Max Depth: 2\n"
                           " Level: 1\n"
                           "  Index: -1, # of triangles: 0\n"
                           "  Low(-0.500000, 0.000000, 100000000000000000000.000000)\n"
                           "  High(0.250000, 0.333333, 100000000000000000000.000000)\n";
    EXPECT_EQ(Printed(tree), expected);
    const CommaLocale locale;
    if (!locale.IsActive())
        GTEST_SKIP() << "no locale with a decimal comma here";
    EXPECT_EQ(Printed(tree), expected);
}

}
