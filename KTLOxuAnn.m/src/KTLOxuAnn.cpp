#include <KTLOxuAnn.h>
#include <annC_ArchEntry.h>
#include <oxu_Component.h>
#include <oxu_StartCounter.h>
#include <typ_ArchCompTable.h>

namespace
{
constinit oxu_StartCounter called;
}

void KTLOxuAnn_initialize(int& running)
{
    if (!called.Start(running))
        return;
    typ_ArchCompTable::InsertEntry(oxu_ANN, annC_ArchEntry());
}

void KTLOxuAnn_finalize(int& running)
{
    static_cast<void>(called.Stop(running));
}
