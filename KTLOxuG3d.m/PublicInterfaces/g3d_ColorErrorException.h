#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<cow_String, 7>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x24, 3);
    static constexpr const char* NAME = "g3d_ColorErrorException";
    static constexpr const char* PYTHON_TYPE = "ColorError";
    static constexpr const char* MESSAGE = "%s is not a valid color name.";
};

/// A text that names no colour; carries the text.
using g3d_ColorErrorException = nex_CmdException<cow_String, 7>;

extern template class nex_CmdException<cow_String, 7>;
