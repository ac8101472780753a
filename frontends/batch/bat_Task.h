#pragma once

#include <bat_Watcher.h>
#include <cstddef>

/// A loop that tells its watcher how far it is, and can be stopped.
class bat_Task
{
public:
    /// total steps, 0 when nobody knows: then nothing counts as done. The watcher is asked every so many of
    /// them, which together must stay well below a tenth of a second.
    bat_Task(bat_Watcher& watcher, std::size_t total, std::size_t every = 256)
        : watcher_(watcher), total_(total), every_(every)
    {}

    /// One step more is done. Raises bat_Interrupted when the watcher wants no more.
    void Step()
    {
        if (++done_ % every_ == 0)
            Ask();
    }

    /// The same question between two steps.
    void Ask() const;

private:
    bat_Watcher& watcher_;
    std::size_t total_;
    std::size_t every_;
    std::size_t done_ = 0;
};
