#include <nex_CmdExceptionBody.h>
#include <omu_ValueErrorException.h>

template class nex_CmdException<atr_String, 2>;
