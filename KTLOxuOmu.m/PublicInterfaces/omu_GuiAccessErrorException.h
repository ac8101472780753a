#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<atr_String, 32>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 40);
    static constexpr const char* NAME = "omu_GuiAccessErrorException";
    static constexpr const char* PYTHON_TYPE = "GuiAccessError";
};

/// Something that only the graphical front end has; carries the whole message.
using omu_GuiAccessErrorException = nex_CmdException<atr_String, 32>;

extern template class nex_CmdException<atr_String, 32>;
