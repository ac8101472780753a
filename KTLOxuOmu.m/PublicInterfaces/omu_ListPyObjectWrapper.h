#pragma once

#include <omu_PrimList.h>
#include <omu_PyObjectWrapping.h>

/// A list of the scripting language, left where it is; kind "L". The items that this class inherits stay
/// empty: who reads them as arguments asks AsList() first, and Put raises nex_PrimException "Error: Illegal
/// operation for type.".
class OXU_EXPORT omu_ListPyObjectWrapper : public omu_PyObjectWrapping<omu_ListPyObjectWrapper, omu_PrimList>
{
public:
    static constexpr const char* NAME = "omu_ListPyObjectWrapper";
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 46); }

    explicit omu_ListPyObjectWrapper(const omu_PyObjectHandle& object = omu_PyObjectHandle())
        : omu_PyObjectWrapping(object, 'L')
    {}

    /// The items, fetched one by one.
    omu_PrimList AsList() const { return Object().AsList(); }

    int Length() const override { return Object().Length(); }
    omu_Primitive* Index(int index) const override;
    omu_PrimList* Slice(int from, int to) const override;
    omu_PrimList* Repeat(int count) const override;
    omu_PrimList* Concat(const omu_PrimSequence* other) const override;

protected:
    void RequireRoom(int length) const override;
};
