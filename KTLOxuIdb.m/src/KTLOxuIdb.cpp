#include <KTLOxuIdb.h>
#include <oxu_StartCounter.h>

namespace
{
constinit oxu_StartCounter called;
}

void KTLOxuIdb_initialize(int& running)
{
    // Nothing is created early.
    static_cast<void>(called.Start(running));
}

void KTLOxuIdb_finalize(int& running)
{
    static_cast<void>(called.Stop(running));
}
