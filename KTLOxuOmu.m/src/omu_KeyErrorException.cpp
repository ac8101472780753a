#include <nex_CmdExceptionBody.h>
#include <omu_KeyErrorException.h>

template class nex_CmdException<cow_String, 1>;
