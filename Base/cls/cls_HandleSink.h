#pragma once

#include <cls_DeclaredAdapter.h>
#include <cls_ObjectSink.h>
#include <cls_ObjectSource.h>

#include <utility>

/// A sink for attributes that share their objects through a handle class H (cow_COW<T>,
/// cow_CountedHld<T>). `put` is called with each handle in stored order. References to one stored body
/// become handles that share it.
template <cls_Handle H, class F>
class cls_HandleSink final : public cls_ObjectSink
{
public:
    using T = cls_PointeeOf<H>;

    explicit cls_HandleSink(F put) : put_(std::move(put)) {}

    unsigned DeclaredTypeId() const override { return T::TypeId(); }
    const cls_AdapterBase* DeclaredAdapter() const override { return cls_DeclaredAdapter<T>(); }

    bool TakeNull() override
    {
        if constexpr (requires(const H& handle) { handle.IsNull(); })
        {
            put_(H(static_cast<T*>(nullptr)));
            return true;
        }
        else
        {
            return false;
        }
    }
    bool TakeNew(std::unique_ptr<cls_Persistent> object, std::any& shared) override
    {
        if (dynamic_cast<T*>(object.get()) == nullptr)
            return false;
        H handle(dynamic_cast<T*>(object.release()));
        shared = handle;
        put_(std::move(handle));
        return true;
    }
    bool TakeShared(const std::any& shared) override
    {
        const H* former = std::any_cast<H>(&shared);
        if (former == nullptr)
            return false;
        put_(*former);
        return true;
    }

private:
    F put_;
};
