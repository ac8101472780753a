#include <KTLOxuGsl.h>
#include <cls_ClassRegistrar.h>
#include <gsl_ArchEntry.h>
#include <gsl_ArrayPoint.h>
#include <gsl_BBox.h>
#include <gsl_Dot.h>
#include <gsl_DotArray.h>
#include <gsl_LineArray.h>
#include <gsl_ModelSegment.h>
#include <gsl_ModelSegmentArray.h>
#include <gsl_PersistentMatrix.h>
#include <gsl_PersistentVector.h>
#include <gsl_Plane.h>
#include <gsl_PlaneArray.h>
#include <gsl_Point.h>
#include <gsl_Segment.h>
#include <gsl_StLine.h>
#include <oxu_Component.h>
#include <oxu_DeclareClasses.h>
#include <oxu_StartCounter.h>
#include <typ_ArchCompTable.h>

namespace
{
constinit oxu_StartCounter called;

// In the order of the start-up log: a new class has its place.
constexpr oxu_ClassDeclaration CLASSES[] = {
    {&gsl_BBox::InitializeMetadata, 3},
    {&gsl_ModelSegment::InitializeMetadata, 7},
    {&gsl_Plane::InitializeMetadata, 3},
    {&gsl_PlaneArray::InitializeMetadata, 3},
    {&gsl_Point::InitializeMetadata, 7},
    {&gsl_Segment::InitializeMetadata, 3},
    {&gsl_StLine::InitializeMetadata, 3},
    {&gsl_LineArray::InitializeMetadata, 3},
    {&gsl_PersistentVector::InitializeMetadata, 7},
    {&gsl_Dot::InitializeMetadata, 7},
    {&gsl_DotArray::InitializeMetadata, 3},
};

// Classes that are stored but not declared at start-up: their first look-up declares them.
struct LateClass
{
    unsigned typeId;
    const char* name;
    void (*declare)(cls_ClassRegistrar&);
};
constexpr LateClass LATE_CLASSES[] = {
    {gsl_PersistentMatrix::TypeId(), "gsl_Matrix", &gsl_PersistentMatrix::InitializeMetadata},
    {gsl_ArrayPoint::TypeId(), "gsl_ArrayPoint", &gsl_ArrayPoint::InitializeMetadata},
    {gsl_ModelSegmentArray::TypeId(), "gsl_ModelSegmentArray", &gsl_ModelSegmentArray::InitializeMetadata},
};
}

void KTLOxuGsl_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_GSL, gsl_ArchEntry());
    oxu_DeclareClasses(CLASSES);
    cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    for (const LateClass& late : LATE_CLASSES)
        registrar.DeclareLate(late.typeId, late.name, late.declare);
}

void KTLOxuGsl_finalize(int& running)
{
    static_cast<void>(called.Stop(running));
}
