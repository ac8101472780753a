#include <cow_2DArray.h>
#include <cow_List.h>
#include <cow_Stack.h>
#include <cow_String.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gtest/gtest.h>

#include <random>
#include <vector>

// What lies in a row: cow_List, cow_Stack, cow_2DArray.

namespace
{
using orvex_testing::ExpectAllOrNothing;
using orvex_testing::Tracked;

template <class T>
class AnyList : public testing::Test
{};
using Items = testing::Types<bool, cow_String>; // packed elsewhere, with a body
TYPED_TEST_SUITE(AnyList, Items);

TYPED_TEST(AnyList, AgreesWithAVectorOnRandomWork)
{
    using T = TypeParam;
    std::mt19937 random(7);
    const auto draw = [&](std::size_t below) { return static_cast<int>(random() % below); };
    cow_List<T> list, copy;
    std::vector<T> model, copyModel;
    for (int step = 0; step < 10000; ++step)
    {
        const int what = draw(9);
        const int at = draw(model.size() + 1);
        T item{};
        if constexpr (std::is_same_v<T, bool>)
            item = step % 3 == 0;
        else
            item = cow_String(std::to_string(step));
        if (what <= 2)
        {
            at == list.Length() ? list.Append(item) : list.Insert(at, item);
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
        else if (at < static_cast<int>(model.size()) && what <= 6)
            (what <= 5 ? list[at] : list.WriteData()[at]) = model[static_cast<std::size_t>(at)] = item;
        else if (at < static_cast<int>(model.size()))
        {
            list.Remove(at);
            model.erase(model.begin() + at);
        }
        ASSERT_TRUE(std::equal(list.begin(), list.end(), model.begin(), model.end()));
        ASSERT_TRUE(std::equal(copy.begin(), copy.end(), copyModel.begin(), copyModel.end()));
        ASSERT_EQ(list == copy, model == copyModel);
        const auto expected = std::find(model.begin() + std::max(at - 2, 0), model.end(), item);
        ASSERT_EQ(list.Find(item, at - 2), expected == model.end() ? -1 : expected - model.begin());
    }
}

TEST(cow_List, ReadsAndRefusedWritesKeepSharing)
{
    cow_List<int> list{1, 2};
    const cow_List<int> copy = list;
    EXPECT_RAISE(list[2], nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(list.Remove(2), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(list.Insert(3, 0), nex_RangeException, "index 3 out of range, length 2");
    EXPECT_EQ(list.Get(0) + copy[1] + list.Find(2) + *list.Data() + *list.begin(), 6);
    EXPECT_TRUE(list.SharesWith(copy) && list == copy);
    list[1] = 7;
    const int* where = list.Data();
    list[1] = 8;
    EXPECT_EQ(list.Data(), where) << "a second write copies nothing";
}

TEST(cow_List, AWriteThatThrowsChangesNothing)
{
    using List = cow_List<Tracked>;
    const Tracked five(5);
    ExpectAllOrNothing<List>(
        [] {
            return List{1, 2, 3, 4};
        },
        {[&](List& list) { list.Append(five); }, [&](List& list) { list.Insert(1, five); },
         [&](List& list) { list.Remove(1); }, [&](List& list) { list.AppendList(List(list)); }});
}

TEST(cow_Stack, CopiesOfEveryDepthStayWhatTheyAreAndEntriesWhereTheyAre)
{
    cow_Stack<int> stack, alone;
    std::vector<cow_Stack<int>> copies; // over several blocks
    for (int depth = 0; depth <= 40; ++depth)
    {
        copies.push_back(stack);
        stack.Push(0);
        stack.WriteTop() = depth;
        alone.Push(depth);
        const int* const first = &alone.At(0);
        alone.Push(-1);
        alone.Pop();
        ASSERT_EQ(&alone.At(0), first);
    }
    EXPECT_EQ(alone, stack);
    for (int depth = 40; depth >= 0; --depth)
    {
        stack.Pop();
        ASSERT_EQ(stack, copies[static_cast<std::size_t>(depth)]);
        ASSERT_EQ(stack.Depth(), depth);
        for (int i = 0; i < depth; ++i)
            ASSERT_EQ(copies[static_cast<std::size_t>(depth)].At(i), i);
    }
    EXPECT_RAISE(stack.Pop(), nex_RangeException, "index -1 out of range, length 0");
}

TEST(cow_Stack, AWriteThatThrowsChangesNothing)
{
    using Stack = cow_Stack<Tracked>;
    for (const int depth : {3, 16, 17})
        ExpectAllOrNothing<Stack>(
            [depth] {
                Stack stack;
                for (int i = 0; i < depth; ++i)
                    stack.Push(i);
                return stack;
            },
            {[](Stack& stack) { stack.Push(-1); }, [](Stack& stack) { stack.Pop(); }});
}

TEST(cow_2DArray, LiesRowByRowAndDetaches)
{
    cow_2DArray<int> array(2, 3, 7);
    const cow_2DArray<int> copy = array;
    array(1, 0) = 5;
    EXPECT_EQ(array.Data()[3] + copy(1, 0), 12);
    EXPECT_RAISE(copy(2, 0), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(array(0, 3), nex_RangeException, "index 3 out of range, length 3");
}
}
