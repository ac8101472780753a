#include <nex_CmdExceptionBody.h>
#include <omu_FontErrorException.h>

template class nex_CmdException<cow_String, 8>;
