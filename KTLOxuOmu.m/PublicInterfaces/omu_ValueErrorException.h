#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<atr_String, 2>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 10);
    static constexpr const char* NAME = "omu_ValueErrorException";
    static constexpr const char* PYTHON_TYPE = "ValueError";
};

/// A value of the right type that is not allowed; carries the whole message.
using omu_ValueErrorException = nex_CmdException<atr_String, 2>;

extern template class nex_CmdException<atr_String, 2>;
