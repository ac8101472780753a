#pragma once

#include <optional>
#include <pybind11/pybind11.h>
#include <string>
#include <wip_ProgressObj.h>
#include <wip_WipReporter.h>

class scr_TravelWatcher;

/// Hands the progress of one call to a Python callable, as (fraction, message): installed as the thread's
/// reporter for its lifetime, in which the former one rests.
///
/// The process has one progress, so there is one such reporter at a time. The callable hears every percentage
/// and text once; the first fraction is 0. What it raises stops the call.
class scr_ProgressReporter : public wip_WipReporter
{
public:
    /// What was given as the callable, or None; raises TypeError for anything else.
    static pybind11::object CallableOf(const pybind11::object& given);

    /// Begins the job of that name. Raises RuntimeError while there is another reporter.
    scr_ProgressReporter(pybind11::object callable, scr_TravelWatcher& watcher, const char* job);
    /// With the interpreter lock, as the constructor.
    ~scr_ProgressReporter() override;
    scr_ProgressReporter(const scr_ProgressReporter&) = delete;
    scr_ProgressReporter& operator=(const scr_ProgressReporter&) = delete;

    /// All of the job is done.
    void Finish();

    void Display(const atr_String&) override {}
    void Print(const atr_String&) override {}
    void Landmark(const atr_String&) override {}
    void Milestone(const atr_String& message) override;
    void Milestone(const atr_String& message, int percent) override;
    void Milestone(const atr_String&, const atr_String&, int, int) override {}
    void Verbose(const atr_String&) override {}
    void Warning(const atr_String&) override {}
    void Error(const atr_String&, wip_errorLevelEnm) override {}
    bool Interrupted() override;
    void InterruptedThrow() override;
    void CommandDone() override {}

private:
    /// The right to be the one, for a scope.
    class Turn
    {
    public:
        Turn();
        ~Turn();
    };

    void Tell(const std::string& message, int percent);

    Turn turn_;
    pybind11::object callable_;
    scr_TravelWatcher& watcher_;
    wip_WipReporter* former_;
    int percent_ = -1; ///< told last
    std::string message_;
    std::optional<wip_ProgressObj> job_;
};
