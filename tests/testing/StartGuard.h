#pragma once

#include <gtest/gtest.h>

/// Starts a module, or the whole library, for the length of a scope and stops it again:
/// StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> guard;
template <void (*Initialize)(int&), void (*Finalize)(int&)>
class StartGuard
{
public:
    StartGuard() { Initialize(running_); }
    ~StartGuard()
    {
        Finalize(running_);
        EXPECT_EQ(running_, 0) << "what this guard started still runs";
    }
    StartGuard(const StartGuard&) = delete;
    StartGuard& operator=(const StartGuard&) = delete;

    /// How many parts were started on this guard's behalf.
    int Running() const { return running_; }

private:
    int running_ = 0;
};
