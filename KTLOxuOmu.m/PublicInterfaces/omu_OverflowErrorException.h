#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<atr_String, 3>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 11);
    static constexpr const char* NAME = "omu_OverflowErrorException";
    static constexpr const char* PYTHON_TYPE = "OverflowError";
};

/// A result too large to be held; carries the whole message.
using omu_OverflowErrorException = nex_CmdException<atr_String, 3>;

extern template class nex_CmdException<atr_String, 3>;
