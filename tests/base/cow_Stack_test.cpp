#include <cow_Stack.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{
using orvex_testing::Tracked;

TEST(cow_Stack, LastInFirstOut)
{
    cow_Stack<int> stack;
    EXPECT_TRUE(stack.IsEmpty());
    for (int i = 0; i < 50; ++i)
    {
        stack.Push(i);
        EXPECT_EQ(stack.Depth(), i + 1);
    }
    EXPECT_EQ(stack.At(0), 0);
    EXPECT_EQ(stack.At(16), 16);
    for (int i = 49; i >= 0; --i)
    {
        EXPECT_EQ(stack.Top(), i);
        stack.Pop();
    }
    EXPECT_TRUE(stack.IsEmpty());
}

TEST(cow_Stack, AnEmptyStackHasNoTop)
{
    cow_Stack<int> stack;
    EXPECT_RAISE(stack.Top(), nex_RangeException, "index -1 out of range, length 0");
    EXPECT_RAISE(stack.WriteTop(), nex_RangeException, "index -1 out of range, length 0");
    EXPECT_RAISE(stack.Pop(), nex_RangeException, "index -1 out of range, length 0");
    stack.Push(1);
    EXPECT_RAISE(stack.At(1), nex_RangeException, "index 1 out of range, length 1");
    stack.Clear();
    EXPECT_EQ(stack.Depth(), 0);
}

TEST(cow_Stack, EntriesStayWhereTheyAreWhileOthersArePushed)
{
    cow_Stack<int> stack;
    std::vector<const int*> places;
    const auto pushAndCheck = [&] {
        for (int i = stack.Depth(); i < 200; ++i)
        {
            stack.Push(i);
            places.push_back(&stack.WriteTop());
        }
        for (int i = 0; i < 200; ++i)
            ASSERT_EQ(&stack.At(i), places[static_cast<std::size_t>(i)]);
    };
    pushAndCheck();

    // Also in a stack that began as a copy, in the middle of a block.
    while (stack.Depth() > 40)
        stack.Pop();
    const cow_Stack<int> keeper = stack;
    stack.WriteTop() = 39;
    places.clear();
    for (int i = 0; i < 40; ++i)
        places.push_back(&stack.At(i));
    pushAndCheck();
    EXPECT_EQ(keeper.Depth(), 40);
}

TEST(cow_Stack, ReadingKeepsSharingAndTheFirstWriteDetaches)
{
    cow_Stack<int> stack;
    stack.Push(1);
    stack.Push(2);
    const cow_Stack<int> copy = stack;
    EXPECT_EQ(stack.Top() + stack.At(0) + stack.Depth(), 5);
    EXPECT_TRUE(stack == copy);
    EXPECT_TRUE(stack.SharesWith(copy));
    stack.WriteTop() = 9;
    EXPECT_FALSE(stack.SharesWith(copy));
    EXPECT_EQ(copy.Top(), 2);
    EXPECT_FALSE(stack == copy);

    cow_Stack<int> pushed = copy;
    pushed.Push(3);
    cow_Stack<int> popped = copy;
    popped.Pop();
    EXPECT_EQ(copy.Depth(), 2);
    EXPECT_FALSE(pushed == copy);
    EXPECT_FALSE(popped == copy);
}

TEST(cow_Stack, AWriteThatThrowsChangesNothing)
{
    const int before = Tracked::live;
    for (const int depth : {3, 16, 17})
    {
        cow_Stack<Tracked> original;
        for (int i = 0; i < depth; ++i)
            original.Push(i);
        const Tracked entry(-1);
        const std::function<cow_Stack<Tracked>()> shared = [&] { return original; };
        const auto unchanged = [&](const cow_Stack<Tracked>& stack) { EXPECT_TRUE(stack == original); };
        EXPECT_GT(orvex_testing::FailEveryCopy<cow_Stack<Tracked>>(
                      shared, [&](cow_Stack<Tracked>& stack) { stack.Push(entry); }, unchanged),
                  depth);
        EXPECT_EQ(orvex_testing::FailEveryCopy<cow_Stack<Tracked>>(
                      shared, [&](cow_Stack<Tracked>& stack) { stack.Pop(); }, unchanged),
                  depth);
    }
    EXPECT_EQ(Tracked::live, before);
}
}
