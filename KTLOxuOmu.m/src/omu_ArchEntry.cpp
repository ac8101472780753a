#include <iterator>
#include <omu_ArchEntry.h>
#include <oxu_Component.h>
#include <typ_Entry.h>

namespace
{
constexpr typ_Entry RESERVED = {oxu_EMPTY, 1, oxu_ROOT, nullptr};

// In index order. Type ids in stored data name these indices: append only, and leave a retired row empty.
constexpr typ_Entry omu_Entries[] = {
    RESERVED,
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_TypeErrorException"},
    {oxu_EXCEPTION, 1, oxu_OMU, "omu_KeywordTypeErrorException"},
    {oxu_EXCEPTION, 1, oxu_OMU, "omu_ArgTypeErrorException"},
    {oxu_EXCEPTION, 1, oxu_OMU, "omu_ArgNumberErrorException"},
    {oxu_EXCEPTION, 1, oxu_OMU, "omu_KeywordErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_AttributeErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_KeyErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_IndexErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_RangeErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_ValueErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_OverflowErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_NameErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_ZeroDivisionErrorException"},
    RESERVED, // 14: retired
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_FontErrorException"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_AccessErrorException"},
    {oxu_VALUE, 1, oxu_ROOT, "omu_Primitive"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimDictionaryBase"},
    {oxu_VALUE, 18, oxu_OMU, "omu_PrimIntDictionary"},
    {oxu_VALUE, 18, oxu_OMU, "omu_PrimStrDictionary"},
    {oxu_VALUE, 25, oxu_OMU, "omu_PrimList"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimNumber"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimPath"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimString"},
    {oxu_VALUE, 32, oxu_OMU, "omu_PrimTuple"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimExpr"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimEnumBase"},
    {oxu_VALUE, 1, oxu_ROOT, "omu_QueryPathMsg"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimNone"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimWrapper"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimType"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimSequence"},
    {oxu_VALUE, 32, oxu_OMU, "omu_PrimArray"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimComplex"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_OrvNameErrorException"},
    {oxu_EXCEPTION, 1, oxu_OMU, "omu_GenericTypeErrorException"},
    {oxu_VALUE, 27, oxu_OMU, "omu_OnOffConst"},
    {oxu_VALUE, 27, oxu_OMU, "omu_TrueFalseConst"},
    {oxu_VALUE, 27, oxu_OMU, "omu_YesNoConst"},
    {oxu_EXCEPTION, 3, oxu_NEX, "omu_GuiAccessErrorException"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PyObjectWrapper"},
    {oxu_VALUE, 45, oxu_OMU, "omu_DictPyObjectWrapper"},
    {oxu_VALUE, 19, oxu_OMU, "omu_DictIntPyObjectWrapper"},
    {oxu_VALUE, 20, oxu_OMU, "omu_DictStrPyObjectWrapper"},
    {oxu_VALUE, 18, oxu_OMU, "omu_PrimDictionary"},
    {oxu_VALUE, 21, oxu_OMU, "omu_ListPyObjectWrapper"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimException"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimTranslatedString"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PrimBoolean"},
    {oxu_VALUE, 17, oxu_OMU, "omu_PyOrvexException"},
};
static_assert(std::size(omu_Entries) == 51);
}

typ_ArchCompEntry omu_ArchEntry()
{
    return typ_ArchCompEntry(omu_Entries, std::size(omu_Entries));
}
