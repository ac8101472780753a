#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<int, 1>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 8);
    static constexpr const char* NAME = "omu_IndexErrorException";
    static constexpr const char* PYTHON_TYPE = "IndexError";
};

/// A subscript outside a sequence; carries the index.
using omu_IndexErrorException = nex_CmdException<int, 1>;

extern template class nex_CmdException<int, 1>;
