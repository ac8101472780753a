#include <cow_Btree.h>
#include <cow_Map.h>
#include <cow_String.h>
#include <nex_PrimException.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

// cow_Map keeps the order of insertion, cow_Btree that of the keys; all else they promise alike.

namespace
{
using orvex_testing::FailEveryCopy;
using orvex_testing::Tracked;
using testing::ElementsAre;
using testing::Pair;

template <template <class, class> class Map, bool SORTED>
struct Kind
{
    static constexpr bool sorted = SORTED;
    using Words = Map<int, cow_String>;
    using Names = Map<cow_String, int>;
    using Hard = Map<Tracked, Tracked>;
};

template <class K>
class AnyMap : public testing::Test
{};
using Kinds = testing::Types<Kind<cow_Map, false>, Kind<cow_Btree, true>>;
TYPED_TEST_SUITE(AnyMap, Kinds);

TYPED_TEST(AnyMap, AgreesWithAListOfPairsOnRandomWork)
{
    // A few keys give collisions and removals and cross the border of the hash index (8 pairs), many fill and
    // empty blocks; negative keys stir the hash.
    using Pairs = std::vector<std::pair<int, cow_String>>;
    for (const int keys : {6, 20, 3000})
    {
        SCOPED_TRACE(keys);
        std::mt19937 random(static_cast<unsigned>(keys));
        typename TypeParam::Words map;
        Pairs model;
        typename TypeParam::Words copy;
        Pairs copyModel;
        for (int step = 0; step < 8000; ++step)
        {
            const int key = (static_cast<int>(random() % static_cast<unsigned>(keys)) - keys / 2) * 64;
            const int what = static_cast<int>(random() % 8);
            const bool grows = step / 2000 % 2 == 0;
            auto place =
                std::find_if(model.begin(), model.end(), [&](auto& pair) { return pair.first == key; });
            const bool known = place != model.end();
            ASSERT_EQ(map.IsMember(key), known);
            ASSERT_EQ(map.IndexOf(key), known ? place - model.begin() : -1);
            if (what == 0)
            {
                copy = map;
                copyModel = model;
            }
            else if (what == 1)
            {
                cow_String* found = map.FindForWrite(key);
                ASSERT_EQ(found != nullptr, known);
                if (known)
                    place->second = *found += "!";
            }
            else if (what < (grows ? 7 : 3))
            {
                // A value may be one of the map itself.
                const cow_String value = model.empty() ? "first" : model[model.size() / 2].second + "+";
                map.Insert(key, value.Length() < 20 ? value : map.ValueAt(0));
                const cow_String& put = value.Length() < 20 ? value : model[0].second;
                if (known)
                    place->second = cow_String(put);
                else
                    model.emplace_back(key, put);
                if (TypeParam::sorted)
                    std::sort(model.begin(), model.end(),
                              [](const auto& a, const auto& b) { return a.first < b.first; });
            }
            else
            {
                ASSERT_EQ(map.Remove(key), known);
                if (known)
                    model.erase(place);
            }
            ASSERT_EQ(map.Length(), static_cast<int>(model.size()));
            if (keys > 20 && step % 250 != 0)
                continue;
            ASSERT_TRUE(std::equal(map.begin(), map.end(), model.begin(), model.end()));
            ASSERT_TRUE(std::equal(copy.begin(), copy.end(), copyModel.begin(), copyModel.end()));
            for (int i = 0; i < map.Length(); ++i)
            {
                ASSERT_EQ(map.KeyAt(i), model[static_cast<std::size_t>(i)].first);
                ASSERT_EQ(map.Find(map.KeyAt(i)), &map.ValueAt(i));
                ASSERT_EQ(map.IndexOf(map.KeyAt(i)), i);
            }
        }
        EXPECT_GT(copyModel.size(), keys > 20 ? 100u : 0u);
    }
}

TYPED_TEST(AnyMap, MissingKeysAndPositionsAreNamed)
{
    const typename TypeParam::Words words{{1, "one"}};
    const typename TypeParam::Names names{{"%s", 1}};
    EXPECT_RAISE(words.Get(-7), nex_PrimException, "key '-7' not found");
    EXPECT_RAISE(names.Get("100%d"), nex_PrimException, "key '100%d' not found");
    EXPECT_RAISE(typename TypeParam::Hard().Get(1), nex_PrimException, "key not found");
    EXPECT_RAISE(words.KeyAt(1), nex_RangeException, "index 1 out of range, length 1");
    EXPECT_RAISE(words.ValueAt(-1), nex_RangeException, "index -1 out of range, length 1");
}

TYPED_TEST(AnyMap, ReadingKeepsSharingAndTheFirstWriteDetaches)
{
    using Words = typename TypeParam::Words;
    const Words original{{1, "one"}, {2, "two"}};
    Words map = original;
    int seen = map.Get(1).Length() + map.KeyAt(0) + map.Keys().Length() + (map.Find(9) ? 1 : 0);
    for (const auto& [key, value] : map)
        seen += key + value.Length();
    EXPECT_EQ(seen, 15);
    EXPECT_TRUE(map == original);
    EXPECT_EQ(map.FindForWrite(9), nullptr);
    EXPECT_FALSE(map.Remove(9));
    EXPECT_TRUE(map.SharesWith(original)) << "writes that find nothing are no writes";

    const auto detaches = [&](auto write) {
        Words copy = original;
        write(copy);
        EXPECT_FALSE(copy.SharesWith(original));
        EXPECT_THAT(original, ElementsAre(Pair(1, "one"), Pair(2, "two")));
    };
    detaches([](Words& copy) { *copy.FindForWrite(1) = "eins"; });
    detaches([](Words& copy) { copy.Insert(3, "three"); });
    detaches([](Words& copy) { copy.Insert(1, "eins"); });
    detaches([](Words& copy) { EXPECT_TRUE(copy.Remove(2)); });
    detaches([](Words& copy) { copy.Clear(); });
}

TYPED_TEST(AnyMap, EqualityGoesByPairs)
{
    using Names = typename TypeParam::Names;
    const Names map{{"a", 1}, {"b", 2}};
    EXPECT_EQ(map, (Names{{"b", 2}, {"a", 1}}));
    EXPECT_NE(map, (Names{{"a", 1}, {"b", 3}}));
    EXPECT_NE(map, (Names{{"a", 1}, {"c", 2}}));
    EXPECT_NE(map, (Names{{"a", 1}}));
}

TYPED_TEST(AnyMap, AWriteThatThrowsChangesNothing)
{
    using Map = typename TypeParam::Hard;
    const int before = Tracked::live;
    for (const int length : {4, 8, 9, 128, 200}) // around the index and the block
    {
        SCOPED_TRACE(length);
        const auto fill = [length] {
            Map map;
            for (int i = 0; i < length; ++i)
                map.Insert(i * 2, i);
            return map;
        };
        const Map original = fill();
        const Tracked key(length + 1); // in the middle of the order
        const Tracked value(-1);
        const auto unchanged = [&](const Map& map) {
            EXPECT_TRUE(map == original);
            for (int i = 0; i < length; ++i)
                ASSERT_EQ(map.Find(i * 2), &map.ValueAt(i));
        };
        const std::function<Map()> makes[] = {fill, [&] { return original; }};
        const std::function<void(Map&)> writes[] = {[&](Map& map) { map.Insert(key, value); },
                                                    [&](Map& map) { map.Insert(2, value); },
                                                    [&](Map& map) { map.Remove(2); }};
        for (const auto& make : makes)
            for (const auto& write : writes)
                EXPECT_GT(FailEveryCopy(make, write, unchanged), 0) << &write - writes;
    }
    EXPECT_EQ(Tracked::live, before);
}
}
