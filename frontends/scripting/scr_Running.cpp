#include <atomic>
#include <nex_Raise.h>
#include <pthread.h>
#include <scr_Running.h>

namespace
{
constexpr const char* STOPPED = "the interpreter is exiting; no call can begin";

constinit std::atomic<int> running{0};
constinit std::atomic<bool> cancelled{false};
// The calls of this thread, one in another: those that are left after a fork.
thread_local int ofThisThread = 0;

void KeepOwnCalls()
{
    running.store(ofThisThread);
}

const int atFork = pthread_atfork(nullptr, nullptr, &KeepOwnCalls);

void Leave() noexcept
{
    --ofThisThread;
    if (running.fetch_sub(1) == 1 && cancelled.load())
        running.notify_all();
}
}

scr_Running::scr_Running()
{
    // Counted before the question: the exit sets its flag before it looks at the count.
    running.fetch_add(1);
    ++ofThisThread;
    if (!cancelled.load()) [[likely]]
        return;
    Leave();
    nex_RaisePrim(STOPPED, "frontends/scripting/scr_Running", __LINE__);
}

scr_Running::~scr_Running()
{
    Leave();
}

bool scr_Running::Cancelled() const noexcept
{
    return cancelled.load(std::memory_order_relaxed);
}

void scr_Running::CancelAll() noexcept
{
    cancelled.store(true);
}

void scr_Running::WaitForAll() noexcept
{
    for (int left = running.load(); left > 0; left = running.load())
        running.wait(left);
}
