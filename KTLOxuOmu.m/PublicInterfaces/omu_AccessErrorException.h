#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<cow_String, 9>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 16);
    static constexpr const char* NAME = "omu_AccessErrorException";
    static constexpr const char* PYTHON_TYPE = "AccessError";
    static constexpr const char* MESSAGE = "%s no longer exists";
};

/// A handle whose object is gone; carries its path.
using omu_AccessErrorException = nex_CmdException<cow_String, 9>;

extern template class nex_CmdException<cow_String, 9>;
