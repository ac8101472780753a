#include <nex_CmdExceptionBody.h>
#include <omu_ZeroDivisionErrorException.h>

template class nex_CmdException<atr_String, 6>;
