#pragma once

#include <nex_CommandException.h>
#include <oxu_Export.h>
#include <type_traits>

/// What sets one instance of nex_CmdException apart; specialised in the header that gives the instance its
/// name.
///
/// Holds TYPE_ID, NAME (the registered one), PYTHON_TYPE and, where T is cow_String, MESSAGE: the template
/// into which the value is filled.
template <class T, int N>
struct nex_CmdExceptionTraits;

/// A scripting exception that carries one value: a subject to be named in a fixed sentence (cow_String), a
/// whole message, already translated (atr_String), or an index (int).
///
/// N tells instances with the same T apart and means nothing else. Every instance has a name and a header of
/// its own (omu_KeyErrorException.h); include that, and use the name.
template <class T, int N>
class OXU_EXPORT nex_CmdException : public nex_CommandException
{
    using Traits = nex_CmdExceptionTraits<T, N>;
    static constexpr bool IS_SUBJECT = std::is_same_v<T, cow_String>;
    static constexpr bool IS_MESSAGE = std::is_same_v<T, atr_String>;
    static_assert(IS_SUBJECT || IS_MESSAGE || std::is_same_v<T, int>);

public:
    static constexpr unsigned TypeId() { return nex_CmdExceptionTraits<T, N>::TYPE_ID; }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit nex_CmdException(const T& value) : m_Value(value) {}
    explicit nex_CmdException(const cls_ReadVisitor& reader);

    const T& Value() const { return m_Value; }

    [[noreturn]] void Propagate() const override { throw *this; }
    nex_CmdException* Copy() const override { return new nex_CmdException(*this); }
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;
    const char* PythonType() const override { return Traits::PYTHON_TYPE; }

private:
    static constexpr auto Fields();

    static constexpr unsigned LAYOUT_RELEASE = 800;

    T m_Value{};
};
