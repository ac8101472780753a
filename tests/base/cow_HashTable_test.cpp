#include <cow_HashTable.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace
{
// A few hashes for many items: long runs, which wrap around and out of whose middle items go.
TEST(cow_HashTable, KeepsWhatItWasGivenThroughCollisionsAndRemovals)
{
    std::mt19937 random(5);
    std::vector<int> items(300);
    std::vector<const int*> in, out;
    for (const int& item : items)
        out.push_back(&item);
    const auto hash = [&](const int* item) { return static_cast<std::size_t>(item - items.data()) % 7; };
    cow_HashTable<const int*, nullptr> table;
    for (int step = 0; step < 3000; ++step)
    {
        const bool adds = in.empty() || (!out.empty() && random() % (step < 1500 ? 3 : 2) != 0);
        auto& from = adds ? out : in;
        std::swap(from[random() % from.size()], from.back());
        const int* const item = from.back();
        from.pop_back();
        (adds ? in : out).push_back(item);
        if (adds)
        {
            table.Reserve(static_cast<int>(in.size()));
            table.Add(hash(item), item);
        }
        else
            table.Remove(hash(item), item);
        for (const int& each : items)
        {
            const bool isIn = std::find(in.begin(), in.end(), &each) != in.end();
            const auto matches = [&each](const int* offered) { return offered == &each; };
            ASSERT_EQ(table.Find(hash(&each), matches), isIn ? &each : nullptr);
        }
    }
}
}
