#include <algorithm>
#include <bat_BoxTree.h>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{
using Box = bat_BoxTree::Box;

std::vector<std::size_t> Found(const bat_BoxTree& tree, const Box& box)
{
    std::vector<std::size_t> found;
    tree.Find(box, [&](std::size_t i) { found.push_back(i); });
    std::sort(found.begin(), found.end());
    return found;
}

TEST(BoxTree, OfNothingFindsNothing)
{
    EXPECT_TRUE(Found(bat_BoxTree({}), {{0, 0, 0}, {1, 1, 1}}).empty());
}

TEST(BoxTree, SharingACornerIsMeeting)
{
    const bat_BoxTree tree(std::vector<Box>{{{0, 0, 0}, {1, 1, 1}}});
    EXPECT_EQ(Found(tree, {{1, 1, 1}, {2, 2, 2}}).size(), 1u);
    EXPECT_EQ(Found(tree, {{1, 1, 1.0000001}, {2, 2, 2}}).size(), 0u);
}

TEST(BoxTree, BuildingCanBeStopped)
{
    struct Stop
    {};
    int calls = 0;
    const std::vector<Box> boxes(100, Box{{0, 0, 0}, {1, 1, 1}});
    EXPECT_THROW(bat_BoxTree(boxes,
                             [&] {
                                 if (++calls == 5)
                                     throw Stop();
                             }),
                 Stop);
    EXPECT_EQ(calls, 5);
}

class BoxTreeRandom : public testing::TestWithParam<int>
{};

// Small boxes, all in one place, or flat: the tree finds what a loop finds.
TEST_P(BoxTreeRandom, FindsWhatALoopFinds)
{
    std::mt19937 random(9);
    const int kind = GetParam();
    const auto draw = [&](double size) {
        Box box;
        for (std::size_t k = 0; k < 3; ++k)
        {
            const double at = kind == 1             ? 0.5
                              : kind == 2 && k == 1 ? 0.0
                                                    : std::uniform_real_distribution(0.0, 1.0)(random);
            box.low[k] = at;
            box.high[k] = at + (kind == 1 ? 0.0 : std::uniform_real_distribution(0.0, size)(random));
        }
        return box;
    };
    std::size_t hits = 0;
    for (const std::size_t count : {1u, 8u, 9u, 17u, 1000u})
    {
        std::vector<Box> boxes;
        for (std::size_t i = 0; i < count; ++i)
            boxes.push_back(draw(0.1));
        const bat_BoxTree tree(boxes);
        for (int query = 0; query < 100; ++query)
        {
            const Box box = draw(0.3);
            std::vector<std::size_t> expected;
            for (std::size_t i = 0; i < count; ++i)
                if (boxes[i].Meets(box))
                    expected.push_back(i);
            ASSERT_EQ(Found(tree, box), expected) << count << " boxes, query " << query;
            hits += expected.size();
        }
    }
    EXPECT_GT(hits, 400u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, BoxTreeRandom, testing::Values(0, 1, 2));
}
