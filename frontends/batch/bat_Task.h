#pragma once

#include <cstddef>
#include <string>

/// A loop that tells the user how far it is, on the level of the progress it was given, and can be stopped.
class bat_Task
{
public:
    /// total steps; the user is asked every so many of them, which together must stay well below a tenth of a
    /// second.
    explicit bat_Task(std::size_t total, std::size_t every = 256) : total_(total), every_(every) {}

    /// One step more is done. Raises bat_Interrupted when the user asked to stop.
    void Step()
    {
        if (++done_ % every_ == 0)
            Report();
    }

    /// Tells what is done next, and opens a level over that fraction of the level on top, for a scope.
    class Slice
    {
    public:
        Slice(float fraction, const std::string& message);
        /// Closes the level; the progress stands at its end. What a reporter throws ends here. While an
        /// exception unwinds nothing is reported as done: the level is left to whoever began the job.
        ~Slice();
        Slice(const Slice&) = delete;
        Slice& operator=(const Slice&) = delete;

    private:
        int unwinding_;
    };

private:
    void Report() const;

    std::size_t total_;
    std::size_t every_;
    std::size_t done_ = 0;
};
