#include <algorithm>
#include <bat_Task.h>
#include <exception>
#include <wip_Progress.h>
#include <wip_WIP.h>

void bat_Task::Report() const
{
    wip_WIP::Instance().InterruptedThrow();
    const double done = static_cast<double>(done_) / static_cast<double>(std::max<std::size_t>(total_, 1));
    (void)wip_Progress::Instance().Update(static_cast<float>(std::min(done, 1.0))); // never refused
}

bat_Task::Slice::Slice(float fraction, const std::string& message) : unwinding_(std::uncaught_exceptions())
{
    wip_Progress::Instance().Update(atr_String(message.c_str()));
    (void)wip_Progress::Instance().Push(fraction); // never refused
}

bat_Task::Slice::~Slice()
{
    if (std::uncaught_exceptions() > unwinding_)
        return;
    try
    {
        (void)wip_Progress::Instance().Pop(1);
    }
    catch (...)
    {
        // The level is closed; only its report was lost.
    }
}
