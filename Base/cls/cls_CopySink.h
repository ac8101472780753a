#pragma once

#include <DDB_DeepCopyPtr.h>
#include <cls_DeclaredAdapter.h>
#include <cls_ObjectSink.h>

#include <utility>

/// A sink for attributes that own each of their objects alone. `put` is called with a std::unique_ptr<T> in
/// stored order, empty for null. A second reference to a stored body receives a deep copy of it.
template <class T, class F>
class cls_CopySink final : public cls_ObjectSink
{
public:
    explicit cls_CopySink(F put) : put_(std::move(put)) {}

    unsigned DeclaredTypeId() const override { return T::TypeId(); }
    const cls_AdapterBase* DeclaredAdapter() const override { return cls_DeclaredAdapter<T>(); }

    bool TakeNull() override
    {
        put_(std::unique_ptr<T>());
        return true;
    }
    bool TakeNew(std::unique_ptr<cls_Persistent> object, std::any& shared) override
    {
        if (dynamic_cast<T*>(object.get()) == nullptr)
            return false;
        std::unique_ptr<T> own(dynamic_cast<T*>(object.release()));
        shared = std::shared_ptr<const T>(DDB_DeepCopyPtr(own.get()));
        put_(std::move(own));
        return true;
    }
    bool TakeShared(const std::any& shared) override
    {
        const auto* former = std::any_cast<std::shared_ptr<const T>>(&shared);
        if (former == nullptr)
            return false;
        put_(DDB_DeepCopyPtr(former->get()));
        return true;
    }

private:
    F put_;
};
