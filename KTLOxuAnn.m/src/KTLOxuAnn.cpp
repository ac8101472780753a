#include <KTLOxuAnn.h>
#include <annC_Anchor.h>
#include <annC_Annotation.h>
#include <annC_AnnotationClient.h>
#include <annC_AnnotationContainer.h>
#include <annC_ArchEntry.h>
#include <annC_Arrow.h>
#include <annC_Enumerations.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
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
    {&annC_Annotation::InitializeMetadata, 7},    {&annC_ViewportAnchor::InitializeMetadata, 7},
    {&annC_Arrow::InitializeMetadata, 7},         {&annC_NamedAnchor::InitializeMetadata, 7},
    {&annC_Point3DAnchor::InitializeMetadata, 7}, {&annC_Anchor::InitializeMetadata, 7},
    {&annC_Text::InitializeMetadata, 7},          {&annC_AnnotationContainer::InitializeMetadata, 1},
};

// Every name of these gets an id in the symbolic-constant table, where it has none.
constexpr const omu_EnumEntry* CONSTANTS[] = {
    omu_PrimEnum<annC_RelativePositionEnm, 1>::table, omu_PrimEnum<annC_ArrowHeadStyleEnm, 1>::table,
    omu_PrimEnum<annC_LineThicknessEnm, 1>::table,    omu_PrimEnum<annC_LineStyleEnm, 1>::table,
    omu_PrimEnum<annC_BackgroundStyleEnm, 1>::table,  omu_PrimEnum<annC_JustificationEnm, 1>::table,
};
}

void KTLOxuAnn_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_ANN, annC_ArchEntry());
    oxu_DeclareClasses(CLASSES);
    for (const omu_EnumEntry* table : CONSTANTS)
        omu_SymbolicConstantTable::Instance().AddNames(table);
}

void KTLOxuAnn_finalize(int& running)
{
    if (called.Stop(running))
        annC_AnnotationClient::DestroyDefault();
}
