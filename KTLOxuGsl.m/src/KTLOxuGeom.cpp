#include <KTLBas.h>
#include <KTLOxuAnn.h>
#include <KTLOxuG3d.h>
#include <KTLOxuGeom.h>
#include <KTLOxuGsl.h>
#include <KTLOxuIdb.h>
#include <KTLOxuMdl.h>
#include <KTLOxuOmu.h>
#include <KTLOxuUtf.h>
#include <KTLOxuWip.h>
#include <iterator>
#include <oxu_StartCounter.h>

namespace
{
constinit oxu_StartCounter subComponentCalled;
constinit oxu_StartCounter specificCalled;

struct Part
{
    void (*initialize)(int&);
    void (*finalize)(int&);
};

// In the order of starting; stopped from the last to the first.
constexpr Part PARTS[] = {
    {&KTLBas_initialize, &KTLBas_finalize},
    {&KTLOxuWip_initialize, &KTLOxuWip_finalize},
    {&KTLOxuIdb_initialize, &KTLOxuIdb_finalize},
    {&KTLOxuG3d_initialize, &KTLOxuG3d_finalize},
    {&KTLOxuOmu_initialize, &KTLOxuOmu_finalize},
    {&KTLOxuMdl_initialize, &KTLOxuMdl_finalize},
    {&KTLOxuGsl_initialize, &KTLOxuGsl_finalize},
    {&KTLOxuAnn_initialize, &KTLOxuAnn_finalize},
    {&KTLOxuUtf_initialize, &KTLOxuUtf_finalize},
    {&KTLOxuGeom_specific_initialize, &KTLOxuGeom_specific_finalize},
};
}

void KTLOxuGeom_initialize(int& running)
{
    if (!subComponentCalled.Start(running))
        return;
    for (const Part& part : PARTS)
        part.initialize(running);
}

void KTLOxuGeom_finalize(int& running)
{
    if (!subComponentCalled.Stop(running))
        return;
    for (auto part = std::rbegin(PARTS); part != std::rend(PARTS); ++part)
        part->finalize(running);
}

void KTLOxuGeom_specific_initialize(int&)
{
    int uncounted = 0;
    static_cast<void>(specificCalled.Start(uncounted));
}

void KTLOxuGeom_specific_finalize(int&)
{
    int uncounted = 0;
    static_cast<void>(specificCalled.Stop(uncounted));
}
