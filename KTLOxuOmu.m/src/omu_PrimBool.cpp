#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_PrimBool.h>

template <>
const omu_EnumEntry omu_PrimEnum<bool, 1>::table[] = {{"TRUE", true}, {"FALSE", false}, {nullptr, 0}};
template <>
const omu_EnumEntry omu_PrimEnum<bool, 2>::table[] = {{"ON", true}, {"OFF", false}, {nullptr, 0}};
template <>
const omu_EnumEntry omu_PrimEnum<bool, 3>::table[] = {{"YES", true}, {"NO", false}, {nullptr, 0}};

namespace
{
constexpr const char* FAMILIES[] = {"TRUE_FALSE", "ON_OFF", "YES_NO"};
constexpr unsigned LAYOUT_RELEASE = 800;
}

template <int N>
void omu_PrimBool<N>::InitializeMetadata(cls_ClassRegistrar& registrar) requires(N == 2)
{
    registrar.Create("omu_OnOffConst", TypeId(), LAYOUT_RELEASE, cls_TypeAdapter<omu_PrimBool>::Instance(),
                     omu_PrimEnumBase::TypeId());
}

template <int N>
omu_PrimBool<N>::omu_PrimBool(const cls_ReadVisitor& reader)
    : omu_PrimEnum<bool, N>(HAS_METADATA ? reader.BaseReader() : reader)
{}

template <int N>
cow_String omu_PrimBool<N>::FamilyName()
{
    return FAMILIES[N - 1];
}

template <int N>
void omu_PrimBool<N>::DBWrite(const cls_WriteVisitor& writer) const
{
    if constexpr (HAS_METADATA)
    {
        if (writer.Announce(TypeId(), this->Uid()))
            omu_PrimEnumBase::DBWrite(writer.BaseWriter());
    }
    else
        omu_PrimEnumBase::DBWrite(writer);
}

template class omu_PrimBool<1>;
template class omu_PrimBool<2>;
template class omu_PrimBool<3>;
