#include <nex_CmdExceptionBody.h>
#include <omu_NameErrorException.h>

template class nex_CmdException<atr_String, 4>;
