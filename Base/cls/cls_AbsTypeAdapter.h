#pragma once

#include <cls_AdapterBase.h>
#include <cls_Persistent.h>

/// The adapter of an abstract class: Create() refuses, naming the class.
template <class T>
class cls_AbsTypeAdapter final : public cls_AdapterBase
{
public:
    static const cls_AdapterBase* Instance()
    {
        static const cls_AbsTypeAdapter adapter;
        return &adapter;
    }

    std::unique_ptr<cls_Persistent> Create(const cls_ReadVisitor&) const override
    {
        RaiseAbstract(T::TypeId());
    }
    bool IsAbstract() const override { return true; }
};
