#include <nex_CmdExceptionBody.h>
#include <omu_IndexErrorException.h>

template class nex_CmdException<int, 1>;
