#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<cow_String, 8>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 15);
    static constexpr const char* NAME = "omu_FontErrorException";
    static constexpr const char* PYTHON_TYPE = "FontError";
    static constexpr const char* MESSAGE = "%s is not a valid font.";
};

/// A text that names no font; carries the text.
using omu_FontErrorException = nex_CmdException<cow_String, 8>;

extern template class nex_CmdException<cow_String, 8>;
