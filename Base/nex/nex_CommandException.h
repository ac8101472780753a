#pragma once

#include <nex_Exception.h>

/// An error that a scripting user sees: the message is JournalMessage(), the error type PythonType().
///
/// Abstract. A derived class holds the fields from which it builds its message; nothing is formatted
/// until someone asks, so a thrower may fill the fields one by one.
class BAS_EXPORT nex_CommandException : public nex_Exception
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x1F, 3); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    nex_CommandException();
    explicit nex_CommandException(const cls_ReadVisitor& reader);
    nex_CommandException(const nex_CommandException&);
    nex_CommandException& operator=(const nex_CommandException&);
    ~nex_CommandException() override;

    /// JournalMessage().
    cow_String UserReport() const override;
    /// PythonType(), ": ", and the message.
    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override = 0;
    nex_CommandException* Copy() const override = 0;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    /// A new text holding the message; never fails on bad field values.
    virtual cow_String JournalMessage() const = 0;
    /// Name of the scripting language's error type, a constant ("TypeError").
    virtual const char* PythonType() const = 0;
};
