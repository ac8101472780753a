#include <nex_CmdExceptionBody.h>
#include <omu_AccessErrorException.h>

template class nex_CmdException<cow_String, 9>;
