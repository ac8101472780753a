#include <g3d_ColorErrorException.h>
#include <nex_CmdExceptionBody.h>

template class nex_CmdException<cow_String, 7>;
