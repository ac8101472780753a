#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<atr_String, 6>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 13);
    static constexpr const char* NAME = "omu_ZeroDivisionErrorException";
    static constexpr const char* PYTHON_TYPE = "ZeroDivisionError";
};

/// A division by zero; carries the whole message.
using omu_ZeroDivisionErrorException = nex_CmdException<atr_String, 6>;

extern template class nex_CmdException<atr_String, 6>;
