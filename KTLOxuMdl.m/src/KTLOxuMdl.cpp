#include <KTLOxuMdl.h>
#include <mdl_ArchEntry.h>
#include <oxu_Component.h>
#include <oxu_StartCounter.h>
#include <typ_ArchCompTable.h>

namespace
{
constinit oxu_StartCounter called;
}

void KTLOxuMdl_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_MDL, mdl_ArchEntry());
}

void KTLOxuMdl_finalize(int& running)
{
    static_cast<void>(called.Stop(running));
}
