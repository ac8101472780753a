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

// Gives each thread a handle of one body that nobody else holds, and lets all detach from it at once.
template <class Handle, class Write>
void ShareAndDetach(const Handle& original, Write write)
{
    for (int round = 0; round < 100; ++round)
    {
        std::atomic<int> waiting{THREADS};
        std::vector<std::thread> threads;
        Handle fresh = original;
        write(fresh); // a body that only these threads hold
        std::vector<Handle> handles(THREADS, fresh);
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
    ShareAndDetach(cow_List<int>{1, 2}, [](cow_List<int>& mine) { mine.Append(3); });
    ShareAndDetach(cow_Map<int, int>{{1, 1}}, [](auto& mine) { mine.Insert(2, 3); });
    ShareAndDetach(cow_Btree<int, int>{{1, 1}}, [](auto& mine) { mine.Insert(2, 3); });
    ShareAndDetach(cow_Stack<int>(), [](cow_Stack<int>& mine) { mine.Push(2); });
    ShareAndDetach(cow_COW<int>(1), [](cow_COW<int>& mine) { ++mine.Get(); });
}
}
