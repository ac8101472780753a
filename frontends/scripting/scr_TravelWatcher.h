#pragma once

#include <bat_WipWatcher.h>
#include <chrono>
#include <exception>
#include <pybind11/pybind11.h>
#include <string>
#include <vector>

class scr_Running;

/// Watches one call with meshes: stops it for Ctrl-C (on Python's main thread), for the end of the
/// interpreter, and for a Python exception raised meanwhile; collects the notes. Used without the interpreter
/// lock unless said otherwise.
class scr_TravelWatcher : public bat_Watcher
{
public:
    /// With the interpreter lock. The call's registration must outlive the watcher.
    explicit scr_TravelWatcher(const scr_Running& running);

    /// Progress is told from now on, through the thread's reporter.
    void TellProgress() { tells_ = true; }
    /// With the interpreter lock: takes the Python exception that is set; the first one is kept.
    void Fail();
    bool HasFailed() const { return failure_ != nullptr; }
    /// With the interpreter lock: raises what stopped the call, if anything did.
    void RaiseFailure() const;

    /// With the interpreter lock: the notes as Python texts.
    pybind11::tuple NotesTuple() const;

    void Begin(const std::string& what, float share) override;
    void End() override;
    bool Proceed(double done) override;
    void Note(const std::string& sentence) override { notes_.push_back(sentence); }

private:
    using Clock = std::chrono::steady_clock;

    bool SignalsAllow();

    const scr_Running& running_;
    bool onMainThread_;
    bool tells_ = false;
    Clock::time_point lastLook_ = Clock::now();
    std::exception_ptr failure_;
    std::vector<std::string> notes_;
    bat_WipWatcher progress_;
};
