#include <bat_Phase.h>
#include <exception>

bat_Phase::bat_Phase(bat_Watcher& watcher, float share, const std::string& what)
    : watcher_(watcher), unwinding_(std::uncaught_exceptions())
{
    watcher_.Begin(what, share);
}

bat_Phase::~bat_Phase()
{
    if (std::uncaught_exceptions() > unwinding_)
        return;
    try
    {
        watcher_.End();
    }
    catch (...)
    {
        // The phase is over; only its report was lost.
    }
}
