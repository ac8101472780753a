#include <KTLOxuOmu.h>
#include <omu_AccessErrorException.h>
#include <omu_ArchEntry.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_AttributeErrorException.h>
#include <omu_FontErrorException.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_GuiAccessErrorException.h>
#include <omu_IndexErrorException.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_NameErrorException.h>
#include <omu_OrvNameErrorException.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimDictionaryBase.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimList.h>
#include <omu_PrimNone.h>
#include <omu_PrimNumber.h>
#include <omu_PrimPath.h>
#include <omu_PrimSequence.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimTuple.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>
#include <omu_Primitive.h>
#include <omu_QueryPathMsg.h>
#include <omu_RangeErrorException.h>
#include <omu_SymbolicConstantTable.h>
#include <omu_TypeErrorException.h>
#include <omu_ValueErrorException.h>
#include <omu_ZeroDivisionErrorException.h>
#include <oxu_Component.h>
#include <oxu_DeclareClasses.h>
#include <oxu_StartCounter.h>
#include <typ_ArchCompTable.h>

namespace
{
constinit oxu_StartCounter called;

// In the order of the start-up log: a new class has its place.
constexpr oxu_ClassDeclaration CLASSES[] = {
    {&omu_ArgNumberErrorException::InitializeMetadata, 2},
    {&omu_ArgTypeErrorException::InitializeMetadata, 2},
    {&omu_GenericTypeErrorException::InitializeMetadata, 2},
    {&omu_KeywordErrorException::InitializeMetadata, 2},
    {&omu_KeywordTypeErrorException::InitializeMetadata, 2},
    {&omu_TypeErrorException::InitializeMetadata, 2},
    {&omu_OrvNameErrorException::InitializeMetadata, 2},
    {&omu_AttributeErrorException::InitializeMetadata, 2},
    {&omu_RangeErrorException::InitializeMetadata, 2},
    {&omu_AccessErrorException::InitializeMetadata, 2},
    {&omu_FontErrorException::InitializeMetadata, 2},
    {&omu_GuiAccessErrorException::InitializeMetadata, 2},
    {&omu_IndexErrorException::InitializeMetadata, 2},
    {&omu_KeyErrorException::InitializeMetadata, 2},
    {&omu_NameErrorException::InitializeMetadata, 2},
    {&omu_OverflowErrorException::InitializeMetadata, 2},
    {&omu_ValueErrorException::InitializeMetadata, 2},
    {&omu_ZeroDivisionErrorException::InitializeMetadata, 2},
    {&omu_Primitive::InitializeMetadata, 7},
    {&omu_PrimNumber::InitializeMetadata, 3},
    {&omu_PrimString::InitializeMetadata, 3},
    {&omu_PrimEnumBase::InitializeMetadata, 7},
    {&omu_PrimDictionaryBase::InitializeMetadata, 3},
    {&omu_PrimDictionary<cow_String>::InitializeMetadata, 3},
    {&omu_PrimBoolean::InitializeMetadata, 2},
    {&omu_PrimType::InitializeMetadata, 2},
    {&omu_PrimNone::InitializeMetadata, 2},
    {&omu_PrimPath::InitializeMetadata, 2},
    {&omu_PrimComplex::InitializeMetadata, 2},
    {&omu_PrimExpr::InitializeMetadata, 2},
    {&omu_PrimTranslatedString::InitializeMetadata, 2},
    {&omu_PrimSequence::InitializeMetadata, 2},
    {&omu_PrimTuple::InitializeMetadata, 2},
    {&omu_PrimList::InitializeMetadata, 2},
    {&omu_PrimArray::InitializeMetadata, 2},
    {&omu_PrimDictionary<int>::InitializeMetadata, 2},
    {&omu_PrimWrapper::InitializeMetadata, 2},
    {&omu_PrimException::InitializeMetadata, 2},
    {&omu_OnOffConst::InitializeMetadata, 2},
    {&omu_QueryPathMsg::InitializeMetadata, 2},
};
}

void KTLOxuOmu_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_OMU, omu_ArchEntry());
    oxu_DeclareClasses(CLASSES);
    omu_SymbolicConstantTable::Instance();
}

void KTLOxuOmu_finalize(int& running)
{
    if (called.Stop(running))
        omu_SymbolicConstantTable::Destroy();
}
