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

private:
    struct sigaction former_;
};
