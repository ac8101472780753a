#include <algorithm>
#include <bat_BoxTree.h>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{
using Box = bat_BoxTree::Box;

TEST(BoxTree, BuildingCanBeStopped)
{
    int calls = 0;
    const std::vector<Box> boxes(100, Box{{0, 0, 0}, {1, 1, 1}});
    EXPECT_THROW(bat_BoxTree(boxes, [&] { ++calls == 5 ? throw calls : void(); }), int);
    EXPECT_EQ(calls, 5);
}

/// Sharing a corner is meeting.
bool Meet(const Box& a, const Box& b)
{
    bool meet = true;
    for (std::size_t k = 0; k < 3; ++k)
        meet = meet && std::max(a.low[k], b.low[k]) <= std::min(a.high[k], b.high[k]);
    return meet;
}

enum class Kind { GRID, CORNERS, FLAT };

// Boxes on a grid, where corners are shared (which is meeting), on two corners, or flat: the tree finds what
// a loop finds.
void ExpectFindsWhatALoopFinds(Kind kind)
{
    std::mt19937 random(9);
    const auto draw = [&](int reach, int size) {
        Box box;
        for (std::size_t k = 0; k < 3; ++k)
        {
            box.low[k] = k == 1 && kind == Kind::FLAT ? 0 : static_cast<int>(random() % unsigned(reach));
            box.high[k] = box.low[k] + static_cast<int>(random() % unsigned(size + 1));
        }
        return box;
    };
    std::size_t hits = 0;
    for (const std::size_t count : {0u, 1u, 8u, 9u, 17u, 1000u})
    {
        std::vector<Box> boxes(count);
        for (Box& box : boxes)
            box = kind == Kind::CORNERS ? draw(2, 0) : draw(40, 4);
        const bat_BoxTree tree(boxes);
        for (int query = 0; query < 50; ++query)
        {
            const Box box = draw(kind == Kind::CORNERS ? 3 : 40, 9);
            std::vector<std::size_t> expected;
            for (std::size_t i = 0; i < count; ++i)
                if (Meet(boxes[i], box))
                    expected.push_back(i);
            std::vector<std::size_t> found;
            tree.Find(box, [&](std::size_t i) { found.push_back(i); });
            std::sort(found.begin(), found.end());
            ASSERT_EQ(found, expected) << count << " boxes, query " << query;
            hits += expected.size();
        }
    }
    EXPECT_GT(hits, 100u);
}

TEST(BoxTree, FindsWhatALoopFinds)
{
    for (const Kind kind : {Kind::GRID, Kind::CORNERS, Kind::FLAT})
        ExpectFindsWhatALoopFinds(kind);
}
}
