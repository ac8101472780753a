#include <KTLOxuG3d.h>
#include <g3d_ArchEntry.h>
#include <g3d_ColorErrorException.h>
#include <g3d_Point.h>
#include <g3d_Vector.h>
#include <oxu_Component.h>
#include <oxu_DeclareClasses.h>
#include <oxu_StartCounter.h>
#include <typ_ArchCompTable.h>

namespace
{
constinit oxu_StartCounter called;

// In the order of the start-up log: a new class has its place.
constexpr oxu_ClassDeclaration CLASSES[] = {
    {&g3d_ColorErrorException::InitializeMetadata, 2},
    {&g3d_Point::InitializeMetadata, 4},
    {&g3d_Vector::InitializeMetadata, 4},
};
}

void KTLOxuG3d_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_G3D, g3d_ArchEntry());
    oxu_DeclareClasses(CLASSES);
}

void KTLOxuG3d_finalize(int& running)
{
    static_cast<void>(called.Stop(running));
}
