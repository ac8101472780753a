#pragma once

#include <cow_Count.h>

#include <utility>

/// Counted pointer to a copy-on-write body of type V, the ground of the containers; null at first.
///
/// Copying shares; Get and -> read without detaching; Write and Change detach. What they return is not to
/// be kept across a copy of the handle.
template <class V>
class cow_Shared
{
public:
    cow_Shared() noexcept = default;
    explicit cow_Shared(V value) : body_(new Body(std::move(value))) {}
    cow_Shared(const cow_Shared& other) noexcept : body_(other.body_)
    {
        if (body_)
            body_->count.Share();
    }
    cow_Shared(cow_Shared&& other) noexcept : body_(std::exchange(other.body_, nullptr)) {}
    cow_Shared& operator=(cow_Shared other) noexcept
    {
        std::swap(body_, other.body_);
        return *this;
    }
    ~cow_Shared()
    {
#ifndef __clang_analyzer__ // it does not follow the count, and takes every handle for the last one
        if (body_ && body_->count.Release())
            delete body_;
#endif
    }

    /// Gives the value for writing: made when there is none, copied when others share it.
    V& Write()
    {
        if (!body_)
            *this = cow_Shared(V());
        else if (body_->count.IsShared())
            *this = cow_Shared(V(body_->value));
        return body_->value;
    }

    /// Lets `change` write the value; when it throws, the value is as it was. InPlace says that `change`
    /// itself promises this and may work on a value that is not shared; else it works on a copy. What
    /// `change` refers to in the former value lives until it is done.
    template <bool InPlace, class F>
    void Change(F&& change)
    {
        if (InPlace && body_ && !body_->count.IsShared())
        {
            change(body_->value);
            return;
        }
        cow_Shared fresh(body_ ? V(body_->value) : V());
        change(fresh.body_->value);
        std::swap(body_, fresh.body_);
    }

    const V* Get() const noexcept
    {
        return body_ ? &body_->value : nullptr;
    }
    /// REQUIRES: there is a value.
    const V* operator->() const noexcept
    {
        return &body_->value;
    }
    explicit operator bool() const noexcept
    {
        return body_ != nullptr;
    }
    bool SharesWith(const cow_Shared& other) const noexcept
    {
        return body_ == other.body_;
    }

private:
    struct Body
    {
        explicit Body(V&& v) : value(std::move(v)) {}

        cow_Count count;
        V value;
    };

    Body* body_ = nullptr;
};
