#pragma once

#include <bat_Watcher.h>

/// Passes what a job tells on to the process's progress and to the reporter of the thread that made it, which
/// must be installed; the job stops when that reporter says so.
class bat_WipWatcher : public bat_Watcher
{
public:
    void Begin(const std::string& what, float share) override;
    void End() override;
    bool Proceed(double done) override;
    void Note(const std::string& sentence) override;
};
