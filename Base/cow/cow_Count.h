#pragma once

#include <atomic>

/// How many handles share a copy-on-write body; lies inside the body and starts at one.
///
/// Over std::atomic. A handle that finds itself alone may write: Release of the others happens before
/// IsShared answers false, so handles of one body may live on different threads.
class cow_Count
{
public:
    cow_Count() noexcept = default;
    cow_Count(const cow_Count&) = delete;
    cow_Count& operator=(const cow_Count&) = delete;

    void Share() noexcept { handles_.fetch_add(1, std::memory_order_relaxed); }

    /// True for the last handle, which then deletes the body.
    [[nodiscard]] bool Release() noexcept { return handles_.fetch_sub(1, std::memory_order_acq_rel) == 1; }

    bool IsShared() const noexcept { return handles_.load(std::memory_order_acquire) != 1; }

private:
    std::atomic<int> handles_{1};
};

static_assert(sizeof(cow_Count) == sizeof(int));
