#pragma once

#include <omu_PrimDictionary.h>
#include <omu_PyObjectWrapping.h>

/// A dictionary of the scripting language with text keys, left where it is; kind "{". The entries that this
/// class inherits stay empty.
class OXU_EXPORT omu_DictStrPyObjectWrapper
    : public omu_PyObjectWrapping<omu_DictStrPyObjectWrapper, omu_PrimDictionary<cow_String>>
{
public:
    static constexpr const char* NAME = "omu_DictStrPyObjectWrapper";
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 44); }

    explicit omu_DictStrPyObjectWrapper(const omu_PyObjectHandle& object = omu_PyObjectHandle())
        : omu_PyObjectWrapping(object)
    {}

    int Length() const override { return Object().Length(); }
};
