// Groups of connected nodes in an adjacency matrix.
#include <algorithm>
#include <functional>
#include <gsl_ConnectedGroups.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

namespace
{
// The groups as text; all numbers below their count are there.
std::string Groups(const std::string& adjacency, int n)
{
    const auto matrix = std::make_unique<bool[]>(adjacency.size() + 1);
    std::transform(adjacency.begin(), adjacency.end(), matrix.get(), [](char one) { return one == '1'; });
    std::vector<int> group(10, 9);
    int count = -1;
    gsl_DepthFirstSearch(matrix.get(), n, group.data(), count);
    std::string text;
    for (int i = 0; i < n; ++i)
        text += static_cast<char>('0' + group[static_cast<std::size_t>(i)]);
    EXPECT_EQ(count, n > 0 ? *std::max_element(text.begin(), text.end()) - '0' + 1 : 0);
    return text;
}

TEST(ConnectedGroups, MatchesTable)
{
    EXPECT_EQ(Groups("", 0) + Groups("", -3), "");
    EXPECT_EQ(Groups("100010001", 3), "012") << "no edges: the diagonal is none";
    // One way alone, on purpose: only the row of the node at hand is read.
    EXPECT_EQ(Groups("0010", 2), "01");
    EXPECT_EQ(Groups("0100", 2), "00");
    const bool visited[] = {true, true, false, true, false};
    EXPECT_TRUE(gsl_GetPivot(visited, 5) == 2 && gsl_GetPivot(visited, 2) == -1);
}

// The group of a pivot is what can be reached from it through nodes that no earlier pivot reached.
TEST(ConnectedGroups, AreWhatCanBeReachedOneWayToo)
{
    std::mt19937 engine(63);
    for (int round = 0; round < 2000; ++round)
    {
        const std::size_t n = 1 + engine() % 9;
        const unsigned long rarity = 2 + engine() % 12;
        std::string adjacency(n * n, '0');
        for (char& one : adjacency)
            one = engine() % rarity == 0 ? '1' : '0';
        std::string expected(n, '?');
        char group = '0';
        const std::function<void(std::size_t)> reach = [&](std::size_t i) {
            expected[i] = group;
            for (std::size_t j = n; j-- > 0;)
                if (adjacency[i * n + j] == '1' && expected[j] == '?')
                    reach(j);
        };
        for (; expected.find('?') != expected.npos; ++group)
            reach(expected.find('?'));
        ASSERT_EQ(Groups(adjacency, static_cast<int>(n)), expected) << adjacency;
    }
}

// A matrix of ten gigabytes that takes six megabytes: a chain's repeats itself every n + 1 bytes, and those
// are whole pages.
TEST(ConnectedGroups, FollowsAChainOfAHundredThousandNodes)
{
    constexpr std::size_t N = 25 * 4096 - 1;
    constexpr std::size_t BLOCK = 64 * (N + 1);
    constexpr std::size_t SIZE = (N * N / BLOCK + 1) * BLOCK;
    char* const matrix = static_cast<char*>(
        mmap(nullptr, SIZE, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    if (matrix == MAP_FAILED || (N + 1) % static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) != 0)
        GTEST_SKIP() << "no address space for the matrix, or other pages";
    const int file = memfd_create("chain", 0);
    ASSERT_EQ(ftruncate(file, BLOCK), 0);
    for (char* at = matrix; at < matrix + SIZE; at += BLOCK)
        ASSERT_NE(mmap(at, BLOCK, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0), MAP_FAILED);
    for (std::size_t at = 0; at < BLOCK; at += N + 1)
        matrix[at + 1] = matrix[at + N] = 1;
    std::vector<int> group(N, 77);
    int count = 0;
    gsl_DepthFirstSearch(reinterpret_cast<const bool*>(matrix), N, group.data(), count);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(std::count(group.begin(), group.end(), 0), N);
    close(file);
    munmap(matrix, SIZE);
}
}
