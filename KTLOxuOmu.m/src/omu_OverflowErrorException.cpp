#include <nex_CmdExceptionBody.h>
#include <omu_OverflowErrorException.h>

template class nex_CmdException<atr_String, 3>;
