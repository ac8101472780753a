#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<atr_String, 4>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 12);
    static constexpr const char* NAME = "omu_NameErrorException";
    static constexpr const char* PYTHON_TYPE = "NameError";
};

/// A name that means nothing where it stands; carries the whole message.
using omu_NameErrorException = nex_CmdException<atr_String, 4>;

extern template class nex_CmdException<atr_String, 4>;
