#include <KTLOxuMdl.h>
#include <mdl_ArchEntry.h>
#include <mdl_Enumerations.h>
#include <mdl_Extension.h>
#include <mdl_JaggedArray.h>
#include <mdl_PropagatingAttribute.h>
#include <mdl_PropertyTable.h>
#include <mdl_Repository.h>
#include <omu_SymbolicConstantTable.h>
#include <oxu_Component.h>
#include <oxu_DeclareClasses.h>
#include <oxu_StartCounter.h>
#include <typ_ArchCompTable.h>

namespace
{
constinit oxu_StartCounter called;

// In the order of the start-up log: a new class has its place.
constexpr oxu_ClassDeclaration CLASSES[] = {
    {&mdl_PropString::InitializeMetadata, 7},     {&mdl_PropInt::InitializeMetadata, 7},
    {&mdl_PropDouble::InitializeMetadata, 7},     {&mdl_PropBool::InitializeMetadata, 7},
    {&mdl_PropListInt::InitializeMetadata, 7},    {&mdl_Prop1DArrayInt::InitializeMetadata, 7},
    {&mdl_PropListString::InitializeMetadata, 7}, {&mdl_PropList1DArrayListFloat::InitializeMetadata, 7},
    {&mdl_Extension::InitializeMetadata, 7},      {&mdl_Repository::InitializeMetadata, 7},
    {&mdl_PropertyTable::InitializeMetadata, 7},  {&mdl_JaggedArray::InitializeMetadata, 4},
};

// Every name of these gets an id in the symbolic-constant table, where it has none.
constexpr const omu_EnumEntry* CONSTANTS[] = {
    omu_PrimEnum<mdl_PropAttributeStateEnm, 1>::table,
    omu_PrimEnum<mdl_PropagationStatusEnm, 1>::table,
};
}

void KTLOxuMdl_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_MDL, mdl_ArchEntry());
    oxu_DeclareClasses(CLASSES);
    for (const omu_EnumEntry* table : CONSTANTS)
        omu_SymbolicConstantTable::Instance().AddNames(table);
}

void KTLOxuMdl_finalize(int& running)
{
    static_cast<void>(called.Stop(running));
}
