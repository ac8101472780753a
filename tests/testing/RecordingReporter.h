#pragma once

#include <atr_String.h>
#include <functional>
#include <string>
#include <vector>
#include <wip_Progress.h>
#include <wip_WIP.h>
#include <wip_WipReporter.h>

/// Writes down every call as a line of text; may be told to throw from them, and to answer that the user
/// interrupts.
class RecordingReporter : public wip_WipReporter
{
public:
    struct Thrown
    {};

    /// While set, every operation throws Thrown after it was written down.
    bool throwing = false;
    bool interrupted = false;
    /// Called from every operation, before a throw.
    std::function<void()> onCall;

    std::vector<std::string> log;
    /// The percentages alone, in order.
    std::vector<int> percents;

    /// What was written down since the last call, one line each.
    std::vector<std::string> Take() { return std::exchange(log, {}); }

    void Display(const atr_String& message) override { Note("display", message); }
    void Print(const atr_String& message) override { Note("print", message); }
    void Landmark(const atr_String& message) override { Note("landmark", message); }
    void Milestone(const atr_String& message) override { Note("milestone", message); }
    void Milestone(const atr_String& message, int percent) override
    {
        percents.push_back(percent);
        Note("milestone", message, std::to_string(percent));
    }
    void Milestone(const atr_String& message, const atr_String& object, int done, int total) override
    {
        Note("milestone", message,
             std::string(object.AsCharPtr()) + " " + std::to_string(done) + " " + std::to_string(total));
    }
    void Verbose(const atr_String& message) override { Note("verbose", message); }
    void Warning(const atr_String& message) override { Note("warning", message); }
    void Error(const atr_String& message, wip_errorLevelEnm level) override
    {
        Note("error", message, std::to_string(level));
    }
    bool Interrupted() override
    {
        Note("interrupted?", {});
        return interrupted;
    }
    void InterruptedThrow() override { Note("interrupted!", {}); }
    void CommandDone() override { Note("done", {}); }

protected:
    void Note(const std::string& what, const atr_String& message, const std::string& rest = {})
    {
        log.push_back(what + " '" + message.AsCharPtr() + "'" + (rest.empty() ? "" : " " + rest));
        if (onCall)
            onCall();
        if (throwing)
            throw Thrown();
    }
};

/// Installs a reporter on this thread for a scope, with the progress cleared; the former one comes back after
/// it.
class ReporterScope
{
public:
    explicit ReporterScope(wip_WipReporter* reporter) { Install(reporter); }
    ~ReporterScope() { Install(former_); }
    ReporterScope(const ReporterScope&) = delete;

private:
    static void Install(wip_WipReporter* reporter)
    {
        wip_WIP::Instance().SetWipReporter(reporter);
        wip_Progress::Instance().Clear();
    }

    wip_WipReporter* const former_ = wip_WIP::Instance().GetWipReporter();
};
