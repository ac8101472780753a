#pragma once

/// A call from Python that is under way in the library. While one lives the library does not stop: at the
/// interpreter's exit every call is told to end, and the stop waits until none is left. (A thread that asks
/// for the interpreter lock after that would take the process down with it.)
///
/// Made and destroyed under the interpreter lock, so outside of every scope that releases it:
///
///     scr_Running running;
///     pybind11::gil_scoped_release released;
///     ... if (running.Cancelled()) ...
///
/// Constructing one after the exit has begun raises nex_PrimException.
class scr_Running
{
public:
    scr_Running();
    ~scr_Running();
    scr_Running(const scr_Running&) = delete;
    scr_Running& operator=(const scr_Running&) = delete;

    /// Whether the call is to end soon. May be asked on any thread, without the interpreter lock.
    bool Cancelled() const noexcept;

    /// Tells all calls to end and refuses new ones; for the exit.
    static void CancelAll() noexcept;
    /// Waits until no call is left. Without the interpreter lock, which calls need in order to end.
    static void WaitForAll() noexcept;
};
