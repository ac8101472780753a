#include <algorithm>
#include <gsl_ProceedClock.h>
#include <gsl_TriTriDirDist.h>

namespace
{
using std::chrono::microseconds;

// A search that is asked to stop does so within ten milliseconds: a question at least every second one leaves
// room for a slow look-up in between.
constexpr microseconds QUESTION_EVERY{2000};
// Looks closer together than this waste time, farther apart than that risk to come late.
constexpr microseconds TOO_SOON{50};
constexpr microseconds TOO_LATE{500};
// Longest stride, so that look-ups which turn slow all at once are noticed.
constexpr int LONGEST_STRIDE = 256;
}

void gsl_ProceedClock::Start()
{
    lastLook_ = lastQuestion_ = Clock::now();
    stride_ = left_ = 1;
    done_ = 0.0;
    stopped_ = !asked_.Proceed(done_);
    running_ = true;
}

bool gsl_ProceedClock::Look()
{
    if (!running_)
    {
        left_ = LONGEST_STRIDE;
        return true;
    }
    const Clock::time_point now = Clock::now();
    if (now - lastLook_ < TOO_SOON)
    {
        stride_ = std::min(2 * stride_, LONGEST_STRIDE);
    }
    else if (now - lastLook_ > TOO_LATE)
    {
        stride_ = std::max(stride_ / 8, 1);
    }
    lastLook_ = now;
    left_ = stride_;
    if (!stopped_ && now - lastQuestion_ >= QUESTION_EVERY)
    {
        lastQuestion_ = now;
        stopped_ = !asked_.Proceed(done_);
    }
    return !stopped_;
}
