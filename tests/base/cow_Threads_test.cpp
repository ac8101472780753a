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

struct Counter
{
    virtual ~Counter() = default;
    virtual Counter* Copy() const { return new Counter(*this); }
    int value = 0;
};

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

TEST(Threads, SharesAreReadAndDetachedAtOnce)
{
    ShareAndDetach(cow_String("shared"), [](cow_String& mine) { mine += "+"; });
    ShareAndDetach(atr_translate("value %s"), [](atr_String& mine) { atr_SubstituteFormat(mine, 1, 7); });
    ShareAndDetach(cow_List<cow_String>{"a", "b"}, [](cow_List<cow_String>& mine) { mine.Append("d"); });
    using Map = cow_Map<cow_String, int>;
    ShareAndDetach(Map{{"a", 1}, {"b", 2}}, [](Map& mine) { mine.Insert("b", 3); });
    using Tree = cow_Btree<int, cow_String>;
    ShareAndDetach(Tree{{1, "a"}, {2, "b"}}, [](Tree& mine) { mine.Insert(3, "c"); });
    ShareAndDetach(cow_2DArray<double>(2, 2, 1.0), [](cow_2DArray<double>& mine) { mine(1, 1) = 2.0; });
    ShareAndDetach(cow_Stack<int>(), [](cow_Stack<int>& mine) { mine.Push(2); });
    ShareAndDetach(cow_COW<Counter>(new Counter), [](cow_COW<Counter>& mine) { ++mine.Get().value; });
    cow_ArrayCOW<Counter> array;
    array.Append(new Counter);
    ShareAndDetach(array, [](cow_ArrayCOW<Counter>& mine) { ++mine.Write(0)->value; });
}
}
