#pragma once

#include <omu_PrimDictionaryBase.h>
#include <omu_PyObjectWrapping.h>

/// A dictionary of the scripting language with keys of any kind, left where it is; kind "{".
class OXU_EXPORT omu_DictPyObjectWrapper
    : public omu_PyObjectWrapping<omu_DictPyObjectWrapper, omu_PrimDictionaryBase>
{
public:
    static constexpr const char* NAME = "omu_DictPyObjectWrapper";
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 42); }

    explicit omu_DictPyObjectWrapper(const omu_PyObjectHandle& object = omu_PyObjectHandle())
        : omu_PyObjectWrapping(object, '{')
    {}

    int Length() const override { return Object().Length(); }
};
