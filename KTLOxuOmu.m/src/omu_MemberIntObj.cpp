#include <omu_MemberIntObj.h>

int omu_MemberIntObj::Id() const
{
    return -1;
}
