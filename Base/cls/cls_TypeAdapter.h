#pragma once

#include <cls_AdapterBase.h>
#include <cls_PersistentValue.h>

/// The adapter of a concrete class: Create() makes a T through its constructor from a cls_ReadVisitor. A
/// T that does not derive from cls_Persistent comes inside a cls_PersistentValue<T>.
template <class T>
class cls_TypeAdapter : public cls_AdapterBase
{
public:
    static const cls_AdapterBase* Instance()
    {
        static const cls_TypeAdapter adapter;
        return &adapter;
    }

    std::unique_ptr<cls_Persistent> Create(const cls_ReadVisitor& reader) const override
    {
        if constexpr (std::is_base_of_v<cls_Persistent, T>)
            return std::make_unique<T>(reader);
        else
            return std::make_unique<cls_PersistentValue<T>>(T(reader));
    }
    bool IsAbstract() const override { return false; }
};
