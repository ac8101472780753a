#pragma once

#include <omu_Primitive.h>
#include <omu_PyObjectWrapping.h>

/// An object of the scripting language that passes through this library as it is, kind "W".
class OXU_EXPORT omu_PyObjectWrapper : public omu_PyObjectWrapping<omu_PyObjectWrapper, omu_Primitive>
{
public:
    static constexpr const char* NAME = "omu_PyObjectWrapper";
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 41); }

    explicit omu_PyObjectWrapper(const omu_PyObjectHandle& object = omu_PyObjectHandle())
        : omu_PyObjectWrapping(object, 'W')
    {}
};
