#pragma once

#include <omu_PrimDictionary.h>
#include <omu_PyObjectWrapping.h>

/// A dictionary of the scripting language with integer keys, left where it is; kind "{". The entries that
/// this class inherits stay empty.
class OXU_EXPORT omu_DictIntPyObjectWrapper
    : public omu_PyObjectWrapping<omu_DictIntPyObjectWrapper, omu_PrimDictionary<int>>
{
public:
    static constexpr const char* NAME = "omu_DictIntPyObjectWrapper";
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 43); }

    explicit omu_DictIntPyObjectWrapper(const omu_PyObjectHandle& object = omu_PyObjectHandle())
        : omu_PyObjectWrapping(object)
    {}

    int Length() const override { return Object().Length(); }
};
