#include <KTLOxuAnn.h>
#include <annC_Anchor.h>
#include <annC_Annotation.h>
#include <annC_AnnotationClient.h>
#include <annC_AnnotationContainer.h>
#include <annC_ArchEntry.h>
#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_RegisterConstants.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
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
}

void KTLOxuAnn_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_ANN, annC_ArchEntry());
    oxu_DeclareClasses(CLASSES);
    annC_RegisterConstants();
}

void KTLOxuAnn_finalize(int& running)
{
    if (called.Stop(running))
        annC_AnnotationClient::DestroyDefault();
}
