#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<cow_String, 1>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 7);
    static constexpr const char* NAME = "omu_KeyErrorException";
    static constexpr const char* PYTHON_TYPE = "KeyError";
    static constexpr const char* MESSAGE = "%s";
};

/// A subscript that is not in a dictionary; carries the key.
using omu_KeyErrorException = nex_CmdException<cow_String, 1>;

extern template class nex_CmdException<cow_String, 1>;
