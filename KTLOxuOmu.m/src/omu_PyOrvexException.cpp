#include <nex_CmdExceptionBody.h>
#include <omu_PyOrvexException.h>

template class nex_CmdException<cow_String, 16>;
