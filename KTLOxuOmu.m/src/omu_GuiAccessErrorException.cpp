#include <nex_CmdExceptionBody.h>
#include <omu_GuiAccessErrorException.h>

template class nex_CmdException<atr_String, 32>;
