#pragma once

#include <chrono>

class gsl_TriTriDirDist;

/// Paces a search's calls of Proceed: often enough to stop at once, seldom enough to cost nothing.
///
/// Work is spent in units of some tens of nanoseconds. How many pass between two looks at the clock adapts to
/// how long they take, so that slow look-ups of a caller are seen too. done never falls.
class gsl_ProceedClock
{
public:
    explicit gsl_ProceedClock(gsl_TriTriDirDist& asked) noexcept : asked_(asked) {}

    /// Runs the clock for as long as it lives.
    class Run
    {
    public:
        explicit Run(gsl_ProceedClock& clock) : clock_(clock) { clock_.Start(); }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        ~Run() { clock_.running_ = clock_.stopped_ = false; }

    private:
        gsl_ProceedClock& clock_;
    };

    /// Notes work. false once Proceed has answered so: the search is to end. A clock that does not run asks
    /// nothing.
    bool Spend(int units)
    {
        left_ -= units;
        return left_ > 0 ? !stopped_ : Look();
    }
    /// What the next question will say, 0 to 1.
    void SetDone(double done) noexcept { done_ = done > done_ ? done : done_; }
    bool Stopped() const noexcept { return stopped_; }

private:
    using Clock = std::chrono::steady_clock;

    /// Begins with a first question.
    void Start();
    bool Look();

    gsl_TriTriDirDist& asked_;
    Clock::time_point lastLook_{};
    Clock::time_point lastQuestion_{};
    int stride_ = 1;
    int left_ = 1;
    double done_ = 0.0;
    bool running_ = false;
    bool stopped_ = false;
};
