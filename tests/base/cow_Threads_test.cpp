#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <cow_2DArray.h>
#include <cow_ArrayCOW.h>
#include <cow_Btree.h>
#include <cow_COW.h>
#include <cow_List.h>
#include <cow_Map.h>
#include <cow_Stack.h>
#include <cow_String.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

// Handles of one body on several threads, each thread with a handle of its own: copies come and go, and
// the last handle writes in place what others have just read. Meant for ThreadSanitizer; AddressSanitizer
// sees a lost count too.

namespace
{
constexpr int THREADS = 4;
constexpr int ROUNDS = 100;

// Gives each thread a handle of one body that nobody else holds, and lets all detach from it at once.
template <class Handle, class Write>
void ShareAndDetach(const Handle& original, Write write)
{
    for (int round = 0; round < ROUNDS; ++round)
    {
        std::atomic<int> waiting{THREADS};
        std::vector<std::thread> threads;
        threads.reserve(THREADS);
        std::vector<Handle> handles(THREADS, original);
        Handle fresh = original;
        write(fresh); // a body that only these threads hold
        for (Handle& handle : handles)
            handle = fresh;
        fresh = Handle();
        for (int t = 0; t < THREADS; ++t)
            threads.emplace_back([&, t, mine = std::move(handles[static_cast<std::size_t>(t)])]() mutable {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                Handle copy = mine;
                write(mine); // reads the common body, since the copy holds it too
                write(copy); // detaches, or as the last one writes in place what others have read
            });
        for (std::thread& thread : threads)
            thread.join();
    }
}

TEST(Threads, TextsShareAndDetach)
{
    const cow_String text("shared");
    ShareAndDetach(text, [](cow_String& mine) { mine += "+"; });
    EXPECT_EQ(text, "shared");
}

TEST(Threads, ContainersShareAndDetach)
{
    const cow_List<cow_String> list{"a", "b", "c"};
    ShareAndDetach(list, [](cow_List<cow_String>& mine) { mine.Append("d"); });
    EXPECT_EQ(list.Length(), 3);

    const cow_Map<cow_String, int> map{{"a", 1}, {"b", 2}};
    ShareAndDetach(map, [](cow_Map<cow_String, int>& mine) { mine.Insert("b", 3); });
    EXPECT_EQ(map.Get("b"), 2);

    const cow_Btree<int, cow_String> tree{{1, "a"}, {2, "b"}};
    ShareAndDetach(tree, [](cow_Btree<int, cow_String>& mine) { mine.Insert(3, "c"); });
    EXPECT_EQ(tree.Length(), 2);

    const cow_2DArray<double> array(2, 2, 1.0);
    ShareAndDetach(array, [](cow_2DArray<double>& mine) { mine(1, 1) = 2.0; });
    EXPECT_EQ(array(1, 1), 1.0);

    cow_Stack<int> stack;
    stack.Push(1);
    ShareAndDetach(stack, [](cow_Stack<int>& mine) { mine.Push(2); });
    EXPECT_EQ(stack.Depth(), 1);
}

TEST(Threads, MessagesShareAndDetach)
{
    const atr_String message = atr_translate("value %s");
    ShareAndDetach(message, [](atr_String& mine) { atr_SubstituteFormat(mine, 1, 7); });
    EXPECT_EQ(message.AsString(), "value ");
}

TEST(Threads, PolymorphicValuesShareAndDetach)
{
    struct Counter
    {
        virtual ~Counter() = default;
        virtual Counter* Copy() const { return new Counter(*this); }
        int value = 0;
    };
    const cow_COW<Counter> handle(new Counter);
    ShareAndDetach(handle, [](cow_COW<Counter>& mine) { ++mine.Get().value; });
    EXPECT_EQ(handle->value, 0);

    using Counters = cow_ArrayCOW<Counter, cow_Virtual<Counter>>;
    Counters array;
    array.Append(new Counter);
    ShareAndDetach(array, [](Counters& mine) { ++mine.Write(0)->value; });
    EXPECT_EQ(array.Get(0)->value, 0);
}
}
