#include <atomic>
#include <atr_String.h>
#include <bat_Interrupted.h>
#include <pthread.h>
#include <scr_ProgressReporter.h>
#include <scr_Text.h>
#include <scr_TravelRefusal.h>
#include <scr_TravelWatcher.h>
#include <utility>
#include <wip_Progress.h>
#include <wip_WIP.h>

namespace py = pybind11;

namespace
{
std::atomic<bool> taken = false;
thread_local bool takenHere = false;

// In a child process only the thread that forked goes on.
const int atFork = pthread_atfork(nullptr, nullptr, [] { taken = takenHere; });
}

scr_ProgressReporter::Turn::Turn()
{
    if (taken.exchange(true))
        throw std::runtime_error(
            "another call shows its progress, and there is one progress for all: wait for "
            "it, or call without progress");
    takenHere = true;
}

scr_ProgressReporter::Turn::~Turn()
{
    takenHere = false;
    taken = false;
}

py::object scr_ProgressReporter::CallableOf(const py::object& given)
{
    if (!given.is_none() && !PyCallable_Check(given.ptr()))
        scr_TravelRefusal("progress", "a callable, True or None").Type(given);
    return given;
}

scr_ProgressReporter::scr_ProgressReporter(py::object callable, scr_TravelWatcher& watcher, const char* job)
    : callable_(std::move(callable)), watcher_(watcher), former_(wip_WIP::Instance().GetWipReporter())
{
    wip_WIP::Instance().SetWipReporter(this);
    job_.emplace(job);
    watcher_.TellProgress();
}

scr_ProgressReporter::~scr_ProgressReporter()
{
    job_.reset();
    wip_WIP::Instance().SetWipReporter(former_);
}

void scr_ProgressReporter::Finish()
{
    (void)wip_Progress::Instance().Update(1.0f, "done"); // never refused
}

void scr_ProgressReporter::Milestone(const atr_String& message)
{
    // Before the first percentage a text comes alone; at the end an empty one clears displays.
    if (!message.IsEmpty())
        Tell(message.AsCharPtr(), std::max(percent_, 0));
}

void scr_ProgressReporter::Milestone(const atr_String& message, int percent)
{
    Tell(message.AsCharPtr(), percent);
}

bool scr_ProgressReporter::Interrupted()
{
    return watcher_.HasFailed();
}

void scr_ProgressReporter::InterruptedThrow()
{
    if (Interrupted())
        throw bat_Interrupted();
}

void scr_ProgressReporter::Tell(const std::string& message, int percent)
{
    if (watcher_.HasFailed() || (percent == percent_ && message == message_))
        return;
    percent_ = percent;
    message_ = message;
    const py::gil_scoped_acquire lock;
    try
    {
        callable_(percent / 100.0, scr_Text::FromFileSystem(message));
    }
    catch (py::error_already_set& error)
    {
        error.restore();
        watcher_.Fail();
    }
}
