#pragma once

// The members of nex_CmdException, for the one source file that instantiates an instance. Throwing and
// catching needs nex_CmdException.h alone.

#include <cls_AttributeType.h>
#include <cls_ClassMetadata.h>
#include <cls_ClassRegistrar.h>
#include <cls_CollectionType.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <nex_CmdException.h>
#include <oxu_FormatMessage.h>
#include <string>

template <class T, int N>
void nex_CmdException<T, N>::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    constexpr cls_AttributeType TYPE = IS_SUBJECT   ? cls_AttributeType::STRING
                                       : IS_MESSAGE ? cls_AttributeType::MESSAGE
                                                    : cls_AttributeType::INT;
    cls_ClassMetadata& meta =
        registrar.Create(Traits::NAME, TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<nex_CmdException>::Instance(), nex_CommandException::TypeId());
    meta.AddAttribute(VALUE, TYPE, cls_UniversalRoot, cls_CollectionType::SINGLE);
}

template <class T, int N>
nex_CmdException<T, N>::nex_CmdException(const cls_ReadVisitor& reader)
    : nex_CommandException(reader.BaseReader())
{
    if constexpr (IS_SUBJECT)
        reader.ReadString(VALUE, m_Value);
    else if constexpr (IS_MESSAGE)
        reader.ReadMessage(VALUE, m_Value);
    else
        reader.ReadInt(VALUE, m_Value);
}

template <class T, int N>
void nex_CmdException<T, N>::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_CommandException::DBWrite(writer.BaseWriter());
    if constexpr (IS_SUBJECT)
        writer.WriteString(VALUE, m_Value);
    else if constexpr (IS_MESSAGE)
        writer.WriteMessage(VALUE, m_Value);
    else
        writer.WriteInt(VALUE, m_Value);
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
