#include <cow_Btree.h>
#include <cow_Map.h>
#include <cow_String.h>
#include <nex_PrimException.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>
#include <utility>
#include <vector>

// What cow_Map and cow_Btree promise alike; their orders have tests of their own.

namespace
{
using orvex_testing::Tracked;
using testing::ElementsAre;
using testing::Pair;

template <template <class, class> class Map>
struct Kind
{
    using Words = Map<int, cow_String>;
    using Names = Map<cow_String, int>;
    using Hard = Map<Tracked, Tracked>;
};

template <class K>
class AnyMap : public testing::Test
{};
using Kinds = testing::Types<Kind<cow_Map>, Kind<cow_Btree>>;
TYPED_TEST_SUITE(AnyMap, Kinds);

TYPED_TEST(AnyMap, LooksUp)
{
    typename TypeParam::Words map{{1, "one"}, {2, "two"}};
    map.Insert(3, "three");
    map.Insert(2, "zwei");
    EXPECT_EQ(map.Length(), 3);
    EXPECT_EQ(map.Get(2), "zwei");
    EXPECT_EQ(*map.Find(3), "three");
    EXPECT_EQ(map.Find(4), nullptr);
    EXPECT_TRUE(map.IsMember(1));
    EXPECT_FALSE(map.IsMember(0));
    EXPECT_EQ(map.KeyAt(0), 1);
    EXPECT_EQ(map.ValueAt(2), "three");
    EXPECT_EQ(map.IndexOf(3), 2);
    EXPECT_EQ(map.IndexOf(4), -1);
    EXPECT_THAT(map.Keys(), ElementsAre(1, 2, 3));
    EXPECT_TRUE(map.Remove(1));
    EXPECT_FALSE(map.Remove(1));
    EXPECT_THAT(map.Keys(), ElementsAre(2, 3));
    map.Clear();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_TRUE(map.Keys().IsEmpty());
    EXPECT_EQ(map.begin(), map.end());
    EXPECT_EQ(map, typename TypeParam::Words());
}

TYPED_TEST(AnyMap, AMissingKeyIsNamed)
{
    const typename TypeParam::Words words{{1, "one"}};
    const typename TypeParam::Names names{{"%s", 1}};
    const typename TypeParam::Hard hard;
    EXPECT_RAISE(words.Get(-7), nex_PrimException, "key '-7' not found");
    EXPECT_RAISE(names.Get("100%d"), nex_PrimException, "key '100%d' not found");
    EXPECT_RAISE(names.Get(""), nex_PrimException, "key '' not found");
    EXPECT_RAISE(hard.Get(1), nex_PrimException, "key not found");
}

TYPED_TEST(AnyMap, PositionsAreChecked)
{
    const typename TypeParam::Words map{{1, "one"}};
    EXPECT_RAISE(map.KeyAt(1), nex_RangeException, "index 1 out of range, length 1");
    EXPECT_RAISE(map.ValueAt(-1), nex_RangeException, "index -1 out of range, length 1");
    EXPECT_RAISE(typename TypeParam::Words().KeyAt(0), nex_RangeException, "index 0 out of range, length 0");
}

TYPED_TEST(AnyMap, ReadingKeepsSharingAndTheFirstWriteDetaches)
{
    const typename TypeParam::Words original{{1, "one"}, {2, "two"}};
    typename TypeParam::Words map = original;
    int seen = 0;
    for (const auto& [key, value] : map)
        seen += key + value.Length();
    seen += map.Get(1).Length() + map.KeyAt(0) + map.Keys().Length() + (map.Find(9) ? 1 : 0);
    EXPECT_EQ(seen, 15);
    EXPECT_TRUE(map == original);
    EXPECT_EQ(map.FindForWrite(9), nullptr);
    EXPECT_FALSE(map.Remove(9));
    EXPECT_TRUE(map.SharesWith(original)) << "writes that find nothing are no writes";

    *map.FindForWrite(1) = "eins";
    EXPECT_FALSE(map.SharesWith(original));
    EXPECT_EQ(original.Get(1), "one");

    const auto detaches = [&](auto write) {
        typename TypeParam::Words copy = original;
        write(copy);
        EXPECT_FALSE(copy.SharesWith(original));
        EXPECT_THAT(original, ElementsAre(Pair(1, "one"), Pair(2, "two")));
    };
    detaches([](auto& copy) { copy.Insert(3, "three"); });
    detaches([](auto& copy) { copy.Insert(1, "eins"); });
    detaches([](auto& copy) { EXPECT_TRUE(copy.Remove(2)); });
    detaches([](auto& copy) { copy.Clear(); });
}

TYPED_TEST(AnyMap, KeysAndValuesOfTheMapItselfMayBePutIntoIt)
{
    typename TypeParam::Words map;
    map.Insert(0, "text");
    for (int i = 1; i < 500; ++i)
        map.Insert(i, map.Get(i - 1));
    EXPECT_EQ(map.Get(499), "text");
    for (int i = 0; i < 500; ++i)
        ASSERT_TRUE(map.Remove(map.KeyAt(map.Length() / 2)));
    EXPECT_TRUE(map.IsEmpty());
}

TYPED_TEST(AnyMap, EqualityGoesByPairs)
{
    const typename TypeParam::Names map{{"a", 1}, {"b", 2}};
    EXPECT_EQ(map, (typename TypeParam::Names{{"b", 2}, {"a", 1}}));
    EXPECT_NE(map, (typename TypeParam::Names{{"a", 1}, {"b", 3}}));
    EXPECT_NE(map, (typename TypeParam::Names{{"a", 1}, {"c", 2}}));
    EXPECT_NE(map, (typename TypeParam::Names{{"a", 1}}));
}

TYPED_TEST(AnyMap, AWriteThatThrowsChangesNothing)
{
    using Map = typename TypeParam::Hard;
    for (const int length : {4, 8, 9, 128, 200}) // around the index and the block
    {
        SCOPED_TRACE(length);
        const auto fill = [length] {
            Map map;
            for (int i = 0; i < length; ++i)
                map.Insert(i * 2, i);
            return map;
        };
        Map original = fill();
        const std::function<Map()> alone = fill;
        const std::function<Map()> shared = [&] { return original; };
        const Tracked key(length + 1); // an odd one, in the middle of the order
        const Tracked value(-1);
        const int before = Tracked::live;
        for (const auto& make : {alone, shared})
        {
            const auto holds = [&](auto write) {
                const auto unchanged = [&](const Map& map) {
                    ASSERT_EQ(map.Length(), length);
                    int i = 0;
                    for (const auto& entry : map)
                    {
                        ASSERT_EQ(entry.first.value, i * 2);
                        ASSERT_EQ(entry.second.value, i);
                        ASSERT_EQ(map.Find(i * 2), &entry.second);
                        ++i;
                    }
                };
                EXPECT_GT(orvex_testing::FailEveryCopy<Map>(make, write, unchanged), 0);
            };
            holds([&](Map& map) { map.Insert(key, value); });
            holds([&](Map& map) { map.Insert(2, value); });
            holds([&](Map& map) { EXPECT_TRUE(map.Remove(2)); });
        }
        EXPECT_EQ(Tracked::live, before);
    }
}

TYPED_TEST(AnyMap, AgreesWithAModelOnRandomWork)
{
    // A few keys give collisions and removals, many give growth; negative keys stir the hash.
    for (const int keys : {6, 20, 3000})
    {
        SCOPED_TRACE(keys);
        std::mt19937 random(static_cast<unsigned>(keys));
        const auto draw = [&](int below) {
            return static_cast<int>(random() % static_cast<unsigned>(below));
        };
        typename TypeParam::Words map;
        std::map<int, cow_String> model;
        typename TypeParam::Words copy;
        int removed = 0;
        for (int step = 0; step < 12000; ++step)
        {
            const int key = (draw(keys) - keys / 2) * 64;
            const cow_String value = cow_String(std::to_string(step));
            switch (draw(4))
            {
            case 0:
            case 1:
                map.Insert(key, value);
                model[key] = value;
                break;
            case 2:
                ASSERT_EQ(map.Remove(key), model.erase(key) == 1);
                ++removed;
                break;
            default:
                copy = map;
                if (cow_String* found = map.FindForWrite(key))
                    *found += "!";
                if (model.count(key))
                    model[key] += "!";
            }
            ASSERT_EQ(map.Length(), static_cast<int>(model.size()));
            const auto expected = model.find(key);
            const cow_String* found = map.Find(key);
            ASSERT_EQ(found != nullptr, expected != model.end());
            if (found)
            {
                ASSERT_EQ(*found, expected->second);
            }
            if (step % 500 == 0)
            {
                std::vector<std::pair<int, cow_String>> pairs(map.begin(), map.end());
                std::sort(pairs.begin(), pairs.end());
                ASSERT_TRUE(std::equal(
                    pairs.begin(), pairs.end(), model.begin(), model.end(),
                    [](const auto& a, const auto& b) { return a.first == b.first && a.second == b.second; }));
                for (int i = 0; i < map.Length(); ++i)
                {
                    ASSERT_EQ(map.Find(map.KeyAt(i)), &map.ValueAt(i));
                    ASSERT_EQ(map.IndexOf(map.KeyAt(i)), i);
                }
            }
        }
        EXPECT_GT(removed, 1000);
    }
}

// cow_Map alone: the order.

TEST(cow_Map, KeepsTheOrderOfInsertion)
{
    cow_Map<cow_String, int> map{{"SOLID", 0}, {"DASHED", 2}, {"DOTTED", 1}};
    EXPECT_THAT(map.Keys(), ElementsAre("SOLID", "DASHED", "DOTTED"));

    map.Insert("DASHED", 7);
    EXPECT_THAT(map, ElementsAre(Pair("SOLID", 0), Pair("DASHED", 7), Pair("DOTTED", 1)))
        << "replacing keeps the place";

    EXPECT_TRUE(map.Remove("SOLID"));
    map.Insert("SOLID", 0);
    EXPECT_THAT(map.Keys(), ElementsAre("DASHED", "DOTTED", "SOLID")) << "removed and inserted goes last";
    EXPECT_EQ(map.IndexOf("SOLID"), 2);
    EXPECT_EQ(map.IndexOf("NONE"), -1);
}

TEST(cow_Map, KeepsTheOrderWithAndWithoutIndex)
{
    // 8 pairs have no hash index, 9 do: cross that border up and down.
    std::mt19937 random(3);
    cow_Map<int, int> map;
    std::vector<int> order;
    int crossings = 0;
    for (int step = 0; step < 5000; ++step)
    {
        const bool wasSmall = map.Length() <= 8;
        const int key = static_cast<int>(random() % 20);
        const auto place = std::find(order.begin(), order.end(), key);
        if (random() % 2 == 0)
        {
            map.Insert(key, step);
            if (place == order.end())
                order.push_back(key);
        }
        else
        {
            ASSERT_EQ(map.Remove(key), place != order.end());
            if (place != order.end())
                order.erase(place);
        }
        const cow_List<int> keys = map.Keys();
        ASSERT_TRUE(std::equal(keys.begin(), keys.end(), order.begin(), order.end()));
        for (std::size_t i = 0; i < order.size(); ++i)
            ASSERT_EQ(map.IndexOf(order[i]), static_cast<int>(i));
        crossings += wasSmall != (map.Length() <= 8);
    }
    EXPECT_GT(crossings, 100);
}

// cow_Btree alone: the order and the blocks.

TEST(cow_Btree, KeepsTheOrderOfTheKeys)
{
    cow_Btree<cow_String, int> map{{"b", 1}, {"c", 2}, {"a", 3}};
    map.Insert("b", 9);
    EXPECT_THAT(map, ElementsAre(Pair("a", 3), Pair("b", 9), Pair("c", 2)));
    EXPECT_EQ(map.KeyAt(0), "a");
}

TEST(cow_Btree, HoldsManyKeysInAnyOrderOfInsertion)
{
    constexpr int COUNT = 5000;
    std::vector<int> rising(COUNT);
    for (int i = 0; i < COUNT; ++i)
        rising[static_cast<std::size_t>(i)] = i;
    std::vector<int> falling(rising.rbegin(), rising.rend());
    std::vector<int> shuffled = rising;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
    for (const std::vector<int>& order : {rising, falling, shuffled})
    {
        cow_Btree<int, int> map;
        for (const int key : order)
            map.Insert(key, -key);
        const cow_Btree<int, int> full = map;
        int expected = 0;
        for (const auto& [key, value] : map)
        {
            ASSERT_EQ(key, expected++);
            ASSERT_EQ(value, -key);
        }
        EXPECT_EQ(expected, COUNT);
        EXPECT_EQ(map.KeyAt(COUNT - 1), COUNT - 1);

        // Thin it out to every hundredth, so that blocks join and vanish.
        for (const int key : order)
        {
            if (key % 100 != 0)
            {
                ASSERT_TRUE(map.Remove(key));
            }
        }
        expected = 0;
        for (const auto& [key, value] : map)
        {
            ASSERT_EQ(key, expected);
            ASSERT_EQ(map.KeyAt(expected / 100), key);
            expected += 100;
        }
        EXPECT_EQ(map.Length(), COUNT / 100);
        EXPECT_EQ(full.Length(), COUNT);
    }
}
}
