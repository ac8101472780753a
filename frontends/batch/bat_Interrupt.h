#pragma once

#include <csignal>

/// Catches Ctrl-C (SIGINT) for its lifetime: the first one is noted, to be polled; a second one ends the
/// process at once. One object at a time; the signal is caught also where the parent had it ignored.
class bat_Interrupt
{
public:
    bat_Interrupt();
    ~bat_Interrupt();
    bat_Interrupt(const bat_Interrupt&) = delete;
    bat_Interrupt& operator=(const bat_Interrupt&) = delete;

    static bool IsRequested() noexcept;

    /// A scope that cannot poll and has nothing to tidy up, such as reading a file: the signal ends the
    /// process at once, with bat_ExitCode::INTERRUPTED. On entry, raises bat_Interrupted if the signal came
    /// before.
    class AtOnce
    {
    public:
        AtOnce();
        ~AtOnce();
        AtOnce(const AtOnce&) = delete;
        AtOnce& operator=(const AtOnce&) = delete;
    };

private:
    struct sigaction former_;
};
