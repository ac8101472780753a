#include <omu_ProcessId.h>
#include <unistd.h>

unsigned omu_ProcessId()
{
    return static_cast<unsigned>(getpid());
}
