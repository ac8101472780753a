// One tree, several searches, each on a thread of its own: they only read it.
#include <testing/SetDraw.h>

#include <atomic>
#include <thread>

namespace
{
using namespace testing_sets;

TEST(DirDistThreads, TreesAreSharedBySearches)
{
    GeometryDraw draw(21);
    const Set above = Soup(draw, 600, 3, 0.4);
    const Set below = Moved(Soup(draw, 600, 3, 0.4), {0, 0, -8});
    const gsl_TriOctree fixed = Tree(above, gsl_TriOctree::gsl_OCTREE, 5);
    const gsl_TriOctree movable = Tree(below, gsl_TriOctree::gsl_MODOCTREE, 5);
    constexpr int THREADS = 4;
    constexpr int SEARCHES = 6;
    std::vector<Answer> expected;
    for (int i = 0; i < SEARCHES; ++i)
    {
        SetSearch search(5, above, below);
        ASSERT_TRUE(search.SetDirection({0.05 * i, 0, 1}));
        expected.push_back(Ask(search, fixed, movable, UNLIMITED));
    }
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < THREADS; ++t)
        threads.emplace_back([&, t] {
            SetSearch search(5, above, below);
            for (int i = 0; i < SEARCHES; ++i)
            {
                const int k = (i + t) % SEARCHES;
                if (!search.SetDirection({0.05 * k, 0, 1}))
                    return;
                const bool nested = (i + t) % 3 == 0;
                right +=
                    Ask(search, fixed, movable, UNLIMITED, nested) == expected[static_cast<std::size_t>(k)];
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(right, THREADS * SEARCHES);
}

TEST(DirDistThreads, TreesAreBuiltSideBySide)
{
    std::vector<std::thread> threads;
    std::atomic<int> counted{0};
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&counted, t] {
            GeometryDraw draw(static_cast<unsigned>(t));
            const gsl_TriOctree tree = Tree(Soup(draw, 300, 3, 0.4), gsl_TriOctree::gsl_OCTREE, 5);
            counted += tree.Root()->TriangleCount();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counted, 1200);
}
}
