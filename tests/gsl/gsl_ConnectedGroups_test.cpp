// Groups of connected nodes in an adjacency matrix.
#include <algorithm>
#include <functional>
#include <gsl_ConnectedGroups.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace
{
// The group of a pivot is what can be reached from it through nodes that no earlier pivot reached. One way
// is enough, on purpose: only the row of the node at hand is read.
TEST(ConnectedGroups, AreWhatCanBeReachedOneWayToo)
{
    std::mt19937 engine(63);
    for (int round = 0; round < 2000; ++round)
    {
        const std::size_t n = engine() % 10;
        const unsigned long rarity = 2 + engine() % 12;
        const auto adjacency = std::make_unique<bool[]>(n * n);
        std::generate_n(adjacency.get(), n * n, [&] { return engine() % rarity == 0; });
        std::vector<int> expected(n, -1), group(n, -1);
        int pivots = 0, count = -1;
        const std::function<void(std::size_t)> reach = [&](std::size_t i) {
            expected[i] = pivots;
            for (std::size_t j = n; j-- > 0;)
                if (adjacency[i * n + j] && expected[j] < 0)
                    reach(j);
        };
        for (std::size_t i = 0; i < n; ++i)
            if (expected[i] < 0)
                reach(i), ++pivots;
        gsl_DepthFirstSearch(adjacency.get(), static_cast<int>(n), group.data(), count);
        ASSERT_EQ(group, expected) << round;
        ASSERT_EQ(count, pivots);
    }
}
}
