#pragma once

#include <bat_Watcher.h>

/// A phase of a job, for the length of a scope.
class bat_Phase
{
public:
    /// Tells what is done next, and that it is that share of the phase around it.
    bat_Phase(bat_Watcher& watcher, float share, const std::string& what);
    /// What the watcher throws ends here. While an exception unwinds nothing is told: the job is at its end.
    ~bat_Phase();
    bat_Phase(const bat_Phase&) = delete;
    bat_Phase& operator=(const bat_Phase&) = delete;

private:
    bat_Watcher& watcher_;
    int unwinding_;
};
