#include <cow_Btree.h>
#include <cow_Map.h>
#include <cow_String.h>
#include <nex_PrimException.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

// cow_Map keeps the order of insertion, cow_Btree that of the keys; all else they promise alike.

namespace
{
using orvex_testing::ExpectAllOrNothing;
using orvex_testing::Tracked;

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
        std::mt19937 random(static_cast<unsigned>(keys));
        typename TypeParam::Words map, copy;
        Pairs model, copyModel;
        for (int step = 0; step < 8000; ++step)
        {
            const int key = (static_cast<int>(random() % static_cast<unsigned>(keys)) - keys / 2) * 64;
            const int what = static_cast<int>(random() % 8);
            const bool grows = step / 2000 % 2 == 0;
            auto place =
                std::find_if(model.begin(), model.end(), [&](auto& pair) { return pair.first == key; });
            const bool known = place != model.end();
            ASSERT_EQ(map.IndexOf(key), known ? place - model.begin() : -1);
            if (what == 0)
            {
                copy = map;
                copyModel = model;
            }
            else if (what == 1)
            {
                if (cow_String* found = map.FindForWrite(key))
                    place->second = *found += "!";
            }
            else if (what < (grows ? 7 : 3))
            {
                // A value may be one of the map itself.
                const cow_String value = model.empty() ? "first" : model[model.size() / 2].second + "+";
                map.Insert(key, value.Length() < 20 ? value : map.ValueAt(0));
                const cow_String put = value.Length() < 20 ? value : model[0].second;
                if (known)
                    place->second = put;
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
            if (keys > 20 && step % 250 != 0)
                continue;
            ASSERT_TRUE(std::equal(map.begin(), map.end(), model.begin(), model.end()));
            ASSERT_TRUE(std::equal(copy.begin(), copy.end(), copyModel.begin(), copyModel.end()));
            for (int i = 0; i < map.Length(); ++i)
            {
                ASSERT_EQ(map.KeyAt(i), model[static_cast<std::size_t>(i)].first);
                ASSERT_EQ(map.Find(map.KeyAt(i)), &map.ValueAt(i));
            }
        }
    }
}

TYPED_TEST(AnyMap, MissingKeysAndPositionsAreNamedAndWritesThatFindNothingKeepSharing)
{
    using Names = typename TypeParam::Names;
    const Names names{{"a", 1}, {"b", 2}};
    Names copy = names;
    EXPECT_RAISE(names.Get("100%d"), nex_PrimException, "key '100%d' not found");
    EXPECT_RAISE(typename TypeParam::Hard().Get(1), nex_PrimException, "key not found");
    EXPECT_RAISE(names.KeyAt(2), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_TRUE(copy.FindForWrite("c") == nullptr && !copy.Remove("c") && copy.SharesWith(names));
    EXPECT_EQ(names, (Names{{"b", 2}, {"a", 1}})) << "equality goes by pairs, in any order";
    EXPECT_NE(names, (Names{{"a", 1}, {"b", 3}}));
}

TYPED_TEST(AnyMap, AWriteThatThrowsChangesNothing)
{
    using Map = typename TypeParam::Hard;
    for (const int length : {4, 8, 9, 128, 200}) // around the index and the block
        ExpectAllOrNothing<Map>(
            [length] {
                Map map;
                for (int i = 0; i < length; ++i)
                    map.Insert(i * 2, i);
                return map;
            },
            {[length](Map& map) { map.Insert(length + 1, -1); }, // in the middle of the order
             [](Map& map) { map.Insert(2, -1); }, [](Map& map) { map.Remove(2); }});
}
}
