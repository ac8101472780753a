#include <cow_2DArray.h>
#include <cow_List.h>
#include <cow_Stack.h>
#include <cow_String.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gmock/gmock.h>

#include <random>
#include <type_traits>
#include <vector>

// What lies in a row: cow_List, cow_Stack, cow_2DArray.

namespace
{
using orvex_testing::FailEveryCopy;
using orvex_testing::Tracked;
using testing::ElementsAre;

template <class List>
using WriteResult = decltype(std::declval<List&>()[0]);
static_assert(std::is_same_v<WriteResult<cow_List<bool>>, bool&>);
static_assert(std::is_same_v<WriteResult<const cow_List<bool>>, const bool&>);

template <class T>
class AnyList : public testing::Test
{};
using Items = testing::Types<int, bool, cow_String>; // plain, packed elsewhere, with a body
TYPED_TEST_SUITE(AnyList, Items);

template <class T>
T Item(int number)
{
    if constexpr (std::is_same_v<T, bool>)
        return number % 3 == 0;
    else if constexpr (std::is_same_v<T, int>)
        return number;
    else
        return cow_String(std::to_string(number));
}

TYPED_TEST(AnyList, AgreesWithAVectorOnRandomWork)
{
    using T = TypeParam;
    std::mt19937 random(7);
    const auto draw = [&](std::size_t below) { return static_cast<int>(random() % below); };
    cow_List<T> list;
    std::vector<T> model;
    cow_List<T> copy;
    std::vector<T> copyModel;
    for (int step = 0; step < 10000; ++step)
    {
        const int what = draw(9);
        const int at = draw(model.size() + 1);
        const T item = Item<T>(step);
        if (what <= 1)
        {
            list.Append(item);
            model.push_back(item);
        }
        else if (what <= 2)
        {
            list.Insert(at, item);
            model.insert(model.begin() + at, item);
        }
        else if (what <= 3)
        {
            copy = list;
            copyModel = model;
        }
        else if (what <= 4 && !model.empty() && model.size() < 100)
        {
            // Items of the list itself may be put into it.
            list.Append(list.Get(0));
            list.Insert(0, list.Get(list.Length() - 1));
            list.AppendList(list);
            model.push_back(model[0]);
            model.insert(model.begin(), T(model.back()));
            const std::vector<T> once = model;
            model.insert(model.end(), once.begin(), once.end());
        }
        else if (at < static_cast<int>(model.size()))
        {
            if (what <= 5)
                list[at] = item;
            else if (what <= 6)
                list.WriteData()[at] = item;
            else
                list.Remove(at);
            if (what <= 6)
                model[static_cast<std::size_t>(at)] = item;
            else
                model.erase(model.begin() + at);
        }
        ASSERT_TRUE(std::equal(list.begin(), list.end(), model.begin(), model.end()));
        ASSERT_TRUE(std::equal(copy.begin(), copy.end(), copyModel.begin(), copyModel.end()));
        ASSERT_EQ(list == copy, model == copyModel);
        const int found = list.Find(item, at - 2);
        const auto expected = std::find(model.begin() + std::max(at - 2, 0), model.end(), item);
        ASSERT_EQ(found, expected == model.end() ? -1 : expected - model.begin());
    }
}

TEST(cow_List, EveryPositionIsCheckedAndARefusedWriteKeepsSharing)
{
    cow_List<int> list{1, 2};
    const cow_List<int> copy = list;
    EXPECT_RAISE(list[2], nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(copy[-1], nex_RangeException, "index -1 out of range, length 2");
    EXPECT_RAISE(list.Get(-2), nex_RangeException, "index -2 out of range, length 2");
    EXPECT_RAISE(list.Remove(2), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(list.Insert(3, 0), nex_RangeException, "index 3 out of range, length 2");
    EXPECT_RAISE(list.Insert(-1, 0), nex_RangeException, "index -1 out of range, length 2");
    EXPECT_RAISE(cow_List<int>()[0], nex_RangeException, "index 0 out of range, length 0");
    EXPECT_TRUE(list.SharesWith(copy) && list == copy);
}

TEST(cow_List, ReadsKeepSharingAndWritesDetachOnce)
{
    cow_List<int> list{1, 2, 3};
    const cow_List<int> copy = list;
    EXPECT_EQ(list.Get(0) + copy[1] + list.Find(3) + *list.Data() + *list.begin(), 7);
    EXPECT_TRUE(list.SharesWith(copy));
    list[1] = 7;
    const int* where = list.Data();
    list[2] = 8;
    EXPECT_EQ(list.Data(), where) << "a second write copies nothing";
    list = copy;
    list.Reserve(100);
    EXPECT_FALSE(list.SharesWith(copy));
    list.Clear();
    EXPECT_EQ(list, cow_List<int>());
    EXPECT_THAT(copy, ElementsAre(1, 2, 3));
}

TEST(cow_List, NonsenseCountsGiveTheEmptyList)
{
    const int one = 1;
    EXPECT_TRUE(cow_List<int>::Filled(-3, one).IsEmpty());
    EXPECT_TRUE(cow_List<int>::FromArray(nullptr, -1).IsEmpty());
    EXPECT_THAT(cow_List<bool>::Filled(2, true), ElementsAre(true, true));
    EXPECT_EQ(cow_List<int>().WriteData(), nullptr);
    cow_List<int> list;
    list.Reserve(-1);
    EXPECT_TRUE(list.IsEmpty());
}

TEST(cow_List, AWriteThatThrowsChangesNothingAndItemsDieWithTheLastList)
{
    const int before = Tracked::live;
    {
        const auto alone = [] {
            cow_List<Tracked> list;
            for (int i = 1; i <= 4; ++i)
                list.Append(i);
            return list;
        };
        const cow_List<Tracked> original = alone();
        const Tracked five(5);
        using List = cow_List<Tracked>;
        const auto unchanged = [](const List& list) { EXPECT_THAT(list, ElementsAre(1, 2, 3, 4)); };
        const std::function<List()> makes[] = {alone, [&] { return original; }};
        const std::function<void(List&)> writes[] = {
            [&](List& list) { list.Append(five); }, [&](List& list) { list.Insert(1, five); },
            [&](List& list) { list.Remove(1); }, [&](List& list) { list.AppendList(List(list)); }};
        for (const auto& make : makes)
            for (const auto& write : writes)
                EXPECT_GT(FailEveryCopy(make, write, unchanged), 0) << &write - writes;
    }
    EXPECT_EQ(Tracked::live, before);
}

TEST(cow_Stack, AgreesWithAVectorOnRandomWorkAndEntriesStayWhereTheyAre)
{
    std::mt19937 random(3);
    cow_Stack<int> stack;
    std::vector<int> model;
    std::vector<const int*> places; // of the entries since the last detachment
    cow_Stack<int> copy;
    std::vector<int> copyModel;
    for (int step = 0; step < 5000; ++step)
    {
        const int what = static_cast<int>(random() % 40);
        const bool grows = step / 250 % 2 == 0; // over several blocks, and back to nothing
        if (what == 0)
        {
            copy = stack;
            copyModel = model;
            EXPECT_TRUE(stack == copy && stack.SharesWith(copy));
            places.clear();
        }
        else if (what < (grows ? 25 : 12))
        {
            stack.Push(step);
            model.push_back(step);
            places.resize(model.size() - 1);
            places.push_back(&stack.WriteTop());
        }
        else if (!model.empty() && what < 37)
        {
            stack.Pop();
            model.pop_back();
            places.resize(std::min(places.size(), model.size()));
        }
        else if (!model.empty())
            stack.WriteTop() = model.back() = -step;
        ASSERT_EQ(stack.Depth(), static_cast<int>(model.size()));
        for (std::size_t i = 0; i < model.size(); ++i)
        {
            ASSERT_EQ(stack.At(static_cast<int>(i)), model[i]);
            if (i < places.size() && places[i] != nullptr)
            {
                ASSERT_EQ(&stack.At(static_cast<int>(i)), places[i]);
            }
        }
        ASSERT_EQ(copy.Depth(), static_cast<int>(copyModel.size()));
        ASSERT_TRUE(copyModel.empty() || copy.Top() == copyModel.back());
        ASSERT_EQ(stack == copy, model == copyModel);
    }
    stack.Clear();
    EXPECT_RAISE(stack.Top(), nex_RangeException, "index -1 out of range, length 0");
    EXPECT_RAISE(stack.WriteTop(), nex_RangeException, "index -1 out of range, length 0");
    EXPECT_RAISE(stack.Pop(), nex_RangeException, "index -1 out of range, length 0");
    EXPECT_RAISE(stack.At(0), nex_RangeException, "index 0 out of range, length 0");
}

TEST(cow_Stack, AWriteThatThrowsChangesNothing)
{
    using Stack = cow_Stack<Tracked>;
    const int before = Tracked::live;
    for (const int depth : {3, 16, 17})
    {
        Stack original;
        for (int i = 0; i < depth; ++i)
            original.Push(i);
        const Tracked entry(-1);
        const std::function<Stack()> shared = [&] { return original; };
        const auto unchanged = [&](const Stack& stack) { EXPECT_TRUE(stack == original); };
        EXPECT_GT(FailEveryCopy(
                      shared, [&](Stack& stack) { stack.Push(entry); }, unchanged),
                  depth);
        EXPECT_EQ(FailEveryCopy(
                      shared, [&](Stack& stack) { stack.Pop(); }, unchanged),
                  depth);
    }
    EXPECT_EQ(Tracked::live, before);
}

TEST(cow_2DArray, LiesRowByRowAndDetaches)
{
    cow_2DArray<int> array(2, 3, 7);
    const cow_2DArray<int> copy = array;
    EXPECT_EQ(array.Get(1, 1) + copy(1, 0) + *array.Data(), 21);
    EXPECT_TRUE(array == copy && array.SharesWith(copy));
    array(1, 0) = 5;
    array.WriteData()[5] = 9;
    EXPECT_EQ(array.Data()[3] + copy(1, 0), 12);
    EXPECT_EQ(array(1, 2) + copy(1, 2), 16);
    EXPECT_NE(array, copy);
    EXPECT_RAISE(copy(2, 0), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(copy(0, 3), nex_RangeException, "index 3 out of range, length 3");
    EXPECT_RAISE(array(0, -1), nex_RangeException, "index -1 out of range, length 3");
    EXPECT_RAISE(array.Get(-1, 0), nex_RangeException, "index -1 out of range, length 2");
    EXPECT_RAISE(cow_2DArray<int>(-1, 2), nex_RangeException, "index -1 out of range, length 0");
    EXPECT_RAISE(cow_2DArray<int>(2, -3), nex_RangeException, "index -3 out of range, length 0");

    const cow_2DArray<int> noRows(0, 3);
    EXPECT_TRUE(noRows.IsEmpty());
    EXPECT_EQ(noRows.Cols(), 3);
    EXPECT_NE(noRows, cow_2DArray<int>(2, 0)) << "the shape counts";
    EXPECT_RAISE(noRows(0, 0), nex_RangeException, "index 0 out of range, length 0");
}
}
