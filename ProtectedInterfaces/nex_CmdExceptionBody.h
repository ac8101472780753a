#pragma once

// The members of nex_CmdException, for the one source file that instantiates an instance. Throwing and
// catching needs nex_CmdException.h alone.

#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <nex_CmdException.h>
#include <oxu_FormatMessage.h>
#include <string>

template <class T, int N>
constexpr auto nex_CmdException<T, N>::Fields()
{
    return cls_Fields(cls_Field{"m_Value", &nex_CmdException::m_Value});
}

template <class T, int N>
void nex_CmdException<T, N>::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create(Traits::NAME, TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<nex_CmdException>::Instance(),
                                      nex_CommandException::TypeId()));
}

template <class T, int N>
nex_CmdException<T, N>::nex_CmdException(const cls_ReadVisitor& reader)
    : nex_CommandException(reader.BaseReader())
{
    Fields().Read(reader, *this);
}

template <class T, int N>
void nex_CmdException<T, N>::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_CommandException::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}

template <class T, int N>
cow_String nex_CmdException<T, N>::JournalMessage() const
{
    if constexpr (IS_SUBJECT)
        return oxu_FormatMessage(Traits::MESSAGE, m_Value);
    else if constexpr (IS_MESSAGE)
        return m_Value;
    else
        return cow_String(std::to_string(m_Value));
}
