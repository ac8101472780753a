#pragma once

class wip_WipReporter;

/// The library started, and a reporter installed on this thread, for a scope.
class bat_Session
{
public:
    /// The reporter must outlive the session.
    explicit bat_Session(wip_WipReporter& reporter);
    ~bat_Session();
    bat_Session(const bat_Session&) = delete;
    bat_Session& operator=(const bat_Session&) = delete;

private:
    wip_WipReporter& reporter_;
    int running_ = 0;
};
