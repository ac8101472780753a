#pragma once

#include <cls_TypeId.h>
#include <nex_CmdException.h>

template <>
struct nex_CmdExceptionTraits<cow_String, 16>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x13, 50);
    static constexpr const char* NAME = "omu_PyOrvexException";
    static constexpr const char* PYTHON_TYPE = "OrvexError";
    static constexpr const char* MESSAGE = "%s";
};

/// An error told in plain words; carries them.
///
/// Its row in the component table lists it among the values, below omu_Primitive, and starting the library
/// declares no metadata for it; InitializeMetadata declares the command exception that it is.
using omu_PyOrvexException = nex_CmdException<cow_String, 16>;

extern template class nex_CmdException<cow_String, 16>;
