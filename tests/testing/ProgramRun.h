#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

/// A program started with arguments, its output caught.
class ProgramRun
{
public:
    struct Setting
    {
        bool terminal = false; ///< the error stream is a terminal of 80 columns
        std::string outFile;   ///< standard output goes there instead of being caught
    };

    explicit ProgramRun(const std::vector<std::string>& command, const Setting& setting);
    explicit ProgramRun(const std::vector<std::string>& command) : ProgramRun(command, Setting()) {}
    /// Kills what still runs.
    ~ProgramRun();
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;

    /// Reads until the error stream holds the text, the program ends or PATIENCE is over; whether it holds
    /// it.
    bool WaitForErr(const std::string& text);
    void Signal(int number) const;
    /// Reads to the end and waits; what has not ended when PATIENCE is over is killed.
    ProgramRun& Finish();

    /// After Finish: the exit code, or minus the number of the signal that ended it.
    int Code() const { return code_; }
    const std::string& Out() const { return out_; }
    const std::string& Err() const { return err_; }

private:
    using Clock = std::chrono::steady_clock;
    /// No program of these tests runs nearly so long, on a busy machine either.
    static constexpr std::chrono::minutes PATIENCE{5};

    /// Waits for output and reads it; whether more may come before the deadline.
    bool ReadSome(Clock::time_point deadline);

    pid_t child_ = -1;
    int outPipe_ = -1;
    int errPipe_ = -1;
    int code_ = -1;
    std::string out_;
    std::string err_;
};
