#pragma once

#include <omu_PrimEnum.h>

/// A boolean constant: two names, the true one first, that convert to and from bool. N picks the pair.
///
/// Constants of ON_OFF have metadata and are stored as themselves; those of the other two pairs have a type
/// id alone and are stored as omu_PrimEnumBase, like every enumeration's.
template <int N>
class OXU_EXPORT omu_PrimBool : public omu_PrimEnum<bool, N>
{
    static_assert(N >= 1 && N <= 3);
    static constexpr bool HAS_METADATA = N == 2;

public:
    static constexpr unsigned TypeId()
    {
        constexpr unsigned INDICES[] = {38, 37, 39};
        return cls_MakeTypeId(0x13, INDICES[N - 1]);
    }
    static void InitializeMetadata(cls_ClassRegistrar& registrar) requires(N == 2);

    using omu_PrimEnum<bool, N>::omu_PrimEnum;
    omu_PrimBool() = default;
    explicit omu_PrimBool(const char* name) : omu_PrimEnum<bool, N>(cow_String(name)) {}
    explicit omu_PrimBool(const cls_ReadVisitor& reader);

    /// "ON_OFF", "TRUE_FALSE" or "YES_NO".
    static cow_String FamilyName();

    omu_PrimBool* Copy() const override { return new omu_PrimBool(*this); }
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
};

template <>
const omu_EnumEntry omu_PrimEnum<bool, 1>::table[];
template <>
const omu_EnumEntry omu_PrimEnum<bool, 2>::table[];
template <>
const omu_EnumEntry omu_PrimEnum<bool, 3>::table[];

extern template class omu_PrimBool<1>;
extern template class omu_PrimBool<2>;
extern template class omu_PrimBool<3>;

/// TRUE and FALSE.
using omu_TrueFalseConst = omu_PrimBool<1>;
/// ON and OFF.
using omu_OnOffConst = omu_PrimBool<2>;
/// YES and NO.
using omu_YesNoConst = omu_PrimBool<3>;
