#include <cow_List.h>
#include <cow_String.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gmock/gmock.h>

#include <random>
#include <type_traits>
#include <vector>

namespace
{
using orvex_testing::Tracked;
using testing::ElementsAre;

template <class List>
using WriteResult = decltype(std::declval<List&>()[0]);
static_assert(std::is_same_v<WriteResult<cow_List<bool>>, bool&>);
static_assert(std::is_same_v<WriteResult<const cow_List<bool>>, const bool&>);

TEST(cow_List, InsertsAndRemovesInPlace)
{
    cow_List<int> list{1, 2, 3};
    list.Insert(0, 0);
    list.Insert(4, 4);
    list.Insert(2, 9);
    EXPECT_THAT(list, ElementsAre(0, 1, 9, 2, 3, 4));
    list.Remove(2);
    list.Remove(0);
    list.Remove(3);
    EXPECT_THAT(list, ElementsAre(1, 2, 3));
    EXPECT_EQ(list.Find(3), 2);
    EXPECT_EQ(list.Find(1, 1), -1);
    EXPECT_EQ(list.Find(1, -5), 0);
    list.Clear();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list, cow_List<int>());
}

TEST(cow_List, EveryPositionIsChecked)
{
    cow_List<int> list{1, 2};
    const cow_List<int>& reader = list;
    EXPECT_RAISE(list[2], nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(list[-1], nex_RangeException, "index -1 out of range, length 2");
    EXPECT_RAISE(reader[2], nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(reader.Get(-2), nex_RangeException, "index -2 out of range, length 2");
    EXPECT_RAISE(list.Remove(2), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(list.Insert(3, 0), nex_RangeException, "index 3 out of range, length 2");
    EXPECT_RAISE(list.Insert(-1, 0), nex_RangeException, "index -1 out of range, length 2");
    EXPECT_RAISE(cow_List<int>().Get(0), nex_RangeException, "index 0 out of range, length 0");
    EXPECT_RAISE(cow_List<int>()[0], nex_RangeException, "index 0 out of range, length 0");
    EXPECT_THAT(list, ElementsAre(1, 2));
}

TEST(cow_List, RefusedWriteKeepsSharing)
{
    cow_List<int> list{1, 2};
    const cow_List<int> copy = list;
    EXPECT_RAISE(list[2], nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(list.Remove(-1), nex_RangeException, "index -1 out of range, length 2");
    EXPECT_TRUE(list.SharesWith(copy));
}

TEST(cow_List, ReadingKeepsSharingAndTheFirstWriteDetaches)
{
    cow_List<int> list{1, 2, 3};
    const cow_List<int> copy = list;
    int sum = list.Get(0) + copy[1] + list.Find(3) + *list.Data();
    for (const int item : list)
        sum += item;
    EXPECT_EQ(sum, 12);
    EXPECT_TRUE(list == copy);
    EXPECT_TRUE(list.SharesWith(copy));

    list[1] = 7;
    EXPECT_FALSE(list.SharesWith(copy));
    EXPECT_THAT(list, ElementsAre(1, 7, 3));
    EXPECT_THAT(copy, ElementsAre(1, 2, 3));
    const int* where = list.Data();
    list[2] = 8;
    EXPECT_EQ(list.Data(), where) << "a second write copies nothing";
}

TEST(cow_List, EveryWriteDetaches)
{
    const cow_List<int> original{1, 2, 3};
    const auto detaches = [&](auto write) {
        cow_List<int> list = original;
        write(list);
        EXPECT_FALSE(list.SharesWith(original));
        EXPECT_THAT(original, ElementsAre(1, 2, 3));
    };
    detaches([](cow_List<int>& list) { list.Append(4); });
    detaches([](cow_List<int>& list) { list.AppendList(cow_List<int>(list)); });
    detaches([](cow_List<int>& list) { list.Insert(1, 4); });
    detaches([](cow_List<int>& list) { list.Remove(1); });
    detaches([](cow_List<int>& list) { list.Clear(); });
    detaches([](cow_List<int>& list) { list.WriteData()[0] = 9; });
    detaches([](cow_List<int>& list) { list.Reserve(100); });
}

TEST(cow_List, ItemsOfTheListItselfMayBePutIntoIt)
{
    cow_List<cow_String> list{"a", "b"};
    for (int i = 0; i < 100; ++i) // with and without room
    {
        list.Append(list.Get(0));
        list.Insert(0, list.Get(1));
    }
    EXPECT_EQ(list.Length(), 202);
    EXPECT_EQ(list.Get(201), list.Get(199));

    cow_List<cow_String> doubled{"x", "y"};
    const cow_List<cow_String> keeper = doubled;
    doubled.AppendList(doubled);
    doubled.AppendList(doubled);
    EXPECT_THAT(doubled, ElementsAre("x", "y", "x", "y", "x", "y", "x", "y"));
    EXPECT_THAT(keeper, ElementsAre("x", "y"));
}

TEST(cow_List, BoolIsAnOrdinaryItem)
{
    cow_List<bool> list;
    for (int i = 0; i < 40; ++i)
        list.Append(i % 3 == 0);
    const cow_List<bool> copy = list;
    bool& second = list[1];
    second = true;
    bool* raw = list.WriteData();
    raw[2] = true;
    EXPECT_TRUE(list.Get(1) && list.Get(2));
    EXPECT_FALSE(copy.Get(1) || copy.Get(2));

    bool array[40];
    std::copy(list.begin(), list.end(), array);
    EXPECT_EQ(cow_List<bool>::FromArray(array, 40), list);

    list.Insert(5, true);
    list.Remove(0);
    EXPECT_EQ(list.Length(), 40);
    EXPECT_THAT(cow_List<bool>({true, false, true}), ElementsAre(true, false, true));
    EXPECT_THAT(cow_List<bool>::Filled(2, true), ElementsAre(true, true));
    EXPECT_FALSE(cow_List<bool>({true}) == cow_List<bool>({true, true}));
    EXPECT_FALSE(cow_List<bool>({true, false}) == cow_List<bool>({true, true}));
}

TEST(cow_List, NonsenseCountsGiveTheEmptyList)
{
    const int one = 1;
    EXPECT_TRUE(cow_List<int>::Filled(-3, one).IsEmpty());
    EXPECT_TRUE(cow_List<int>::FromArray(&one, 0).IsEmpty());
    EXPECT_TRUE(cow_List<int>::FromArray(nullptr, -1).IsEmpty());
    EXPECT_EQ(cow_List<int>().WriteData(), nullptr);
    EXPECT_EQ(cow_List<int>().begin(), cow_List<int>().end());
    cow_List<int> list;
    list.Reserve(-1);
    EXPECT_TRUE(list.IsEmpty());
}

TEST(cow_List, NanEqualsNothing)
{
    const cow_List<double> list{std::numeric_limits<double>::quiet_NaN()};
    EXPECT_FALSE(list == list);
}

TEST(cow_List, AWriteThatThrowsChangesNothing)
{
    const std::function<cow_List<Tracked>()> shared = [] {
        static const cow_List<Tracked> list{1, 2, 3, 4};
        return list;
    };
    const std::function<cow_List<Tracked>()> alone = [] {
        cow_List<Tracked> list;
        for (int i = 1; i <= 4; ++i)
            list.Append(i);
        return list;
    };
    const Tracked five(5);
    for (const auto& make : {shared, alone})
    {
        const auto holds = [&](auto write) {
            const int before = Tracked::live;
            const int failures = orvex_testing::FailEveryCopy<cow_List<Tracked>>(
                make, write,
                [](const cow_List<Tracked>& list) { EXPECT_THAT(list, ElementsAre(1, 2, 3, 4)); });
            EXPECT_GT(failures, 0);
            EXPECT_LE(Tracked::live - before, 4) << "at most the static list remains";
        };
        holds([&](cow_List<Tracked>& list) { list.Append(five); });
        holds([&](cow_List<Tracked>& list) { list.Insert(1, five); });
        holds([&](cow_List<Tracked>& list) { list.Remove(1); });
        holds([&](cow_List<Tracked>& list) { list.AppendList(cow_List<Tracked>(list)); });
    }
}

TEST(cow_List, ItemsDieWithTheLastList)
{
    const int before = Tracked::live;
    {
        cow_List<Tracked> a{1, 2, 3};
        cow_List<Tracked> b = a;
        b.Append(4);
        cow_List<Tracked> c = std::move(a);
        a = b;
        EXPECT_EQ(Tracked::live - before, 7);
    }
    EXPECT_EQ(Tracked::live, before);
}

TEST(cow_List, AgreesWithAVectorOnRandomWork)
{
    std::mt19937 random(7);
    const auto draw = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    cow_List<int> list;
    std::vector<int> model;
    cow_List<int> copy;
    std::vector<int> copyModel;
    for (int step = 0; step < 20000; ++step)
    {
        const int length = static_cast<int>(model.size());
        switch (draw(6))
        {
        case 0:
        case 1:
            list.Append(step);
            model.push_back(step);
            break;
        case 2:
        {
            const int at = draw(length + 1);
            list.Insert(at, step);
            model.insert(model.begin() + at, step);
            break;
        }
        case 3:
        case 4:
            if (length > 0)
            {
                const int at = draw(length);
                list.Remove(at);
                model.erase(model.begin() + at);
            }
            break;
        default:
            copy = list;
            copyModel = model;
        }
        ASSERT_TRUE(std::equal(list.begin(), list.end(), model.begin(), model.end()));
        ASSERT_TRUE(std::equal(copy.begin(), copy.end(), copyModel.begin(), copyModel.end()));
    }
}
}
