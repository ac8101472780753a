#pragma once

#include <string>

/// Whoever asked for a job hears how far it is, and may put an end to it. Called on the job's own thread;
/// what an operation throws goes through the job.
class bat_Watcher
{
public:
    virtual ~bat_Watcher() = default;

    /// A phase of the job begins, the share (0 to 1) of the phase that is open, or of the whole job.
    virtual void Begin(const std::string& what, float share) = 0;
    /// The phase begun last is over; what the phase before has done stands at that one's end.
    virtual void End() = 0;
    /// So much, 0 to 1, of the phase begun last is done. Asked at least every ten milliseconds; false means
    /// to stop.
    [[nodiscard]] virtual bool Proceed(double done) = 0;
    /// A sentence on what is odd, yet no reason to stop.
    virtual void Note(const std::string& sentence) = 0;

    /// The watcher of jobs that nobody watches.
    static bat_Watcher& Nobody();
};
