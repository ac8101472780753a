#include <omu_ListPyObjectWrapper.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_ListPyObjectWrapper";
}

omu_Primitive* omu_ListPyObjectWrapper::Index(int index) const
{
    const int length = Length();
    if (index < 0 || index >= length)
        nex_RaiseRange(index, length, SOURCE, __LINE__);
    return Object().Item(omu_PrimNumber(index));
}

omu_PrimList* omu_ListPyObjectWrapper::Slice(int from, int to) const
{
    return AsList().Slice(from, to);
}

omu_PrimList* omu_ListPyObjectWrapper::Repeat(int count) const
{
    return AsList().Repeat(count);
}

omu_PrimList* omu_ListPyObjectWrapper::Concat(const omu_PrimSequence* other) const
{
    return AsList().Concat(other);
}

void omu_ListPyObjectWrapper::RequireRoom(int) const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}
