#pragma once

#include <cls_DeclaredAdapter.h>
#include <cls_ObjectSink.h>

#include <utility>

/// What a value sink leaves beside a body: it is taken, and there is nothing to share.
struct cls_TakenByValue
{};

/// A sink for attributes that hold their objects by value. `put` is called with each T in stored order. A
/// stored value belongs to one attribute: a second reference to it is not taken.
template <class T, class F>
class cls_ValueSink final : public cls_ObjectSink
{
public:
    explicit cls_ValueSink(F put) : put_(std::move(put)) {}

    unsigned DeclaredTypeId() const override { return T::TypeId(); }
    const cls_AdapterBase* DeclaredAdapter() const override { return cls_DeclaredAdapter<T>(); }

    bool TakeNull() override { return false; }
    bool TakeNew(std::unique_ptr<cls_Persistent> object, std::any& shared) override
    {
        T* value = cls_PersistentCast<T>(object.get());
        if (value == nullptr)
            return false;
        shared = cls_TakenByValue();
        put_(std::move(*value));
        return true;
    }
    bool TakeShared(const std::any&) override { return false; }

private:
    F put_;
};
