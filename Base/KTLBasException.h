#pragma once

#include <atr_String.h>
#include <bas_Export.h>
#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <cow_String.h>
#include <nex_TextKeeper.h>

#include <exception>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Root of every exception that the system throws.
///
/// A value: copyable, holding texts only. A copy keeps the identifier. what() equals UserReport(),
/// never throws, and its pointer stays valid while this object lives. The order of the virtual
/// operations is part of the interface: derived classes append, they never insert.
class BAS_EXPORT KTLBasException : public std::exception, public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x1F, 1); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    KTLBasException();
    explicit KTLBasException(const atr_String& message, int code = 0);
    explicit KTLBasException(const cls_ReadVisitor& reader);
    KTLBasException(const KTLBasException&);
    KTLBasException& operator=(const KTLBasException&);
    ~KTLBasException() override;

    const char* what() const noexcept final;

    /// AsString(), then where it was raised, "TypeError: … (KTLOxuOmu.m/src/omu_Arguments, line 12)",
    /// then the traceback on lines of its own. Parts that are not known are left out.
    virtual cow_String DeveloperReport() const;
    /// The message, as a user reads it.
    virtual cow_String UserReport() const;
    /// The name of the error and the message: "TypeError: …".
    virtual cow_String AsString() const;
    /// Throws a copy of the most derived object.
    [[noreturn]] virtual void Propagate() const;
    /// The error code given at construction; 0 where none was.
    virtual int GetCode() const;
    /// A new heap copy of the most derived object; the caller owns it.
    virtual KTLBasException* Copy() const;
    virtual unsigned DynTypeId() const;
    /// Writes identifier, message, code, source, line and traceback.
    virtual void DBWrite(const cls_WriteVisitor& writer) const;
    /// Where a script was; kept as given.
    virtual void SetTraceback(cow_String traceback);
    virtual cow_String GetTraceback() const;

    /// Records where the exception is raised; the raise helpers call it.
    void SetSource(const char* source, int line);
    void SetCode(int code) { code_ = code; }

    /// Tells this failure from every other; kept by copies and by persistence.
    const cls_Uid& Identifier() const { return uid_; }
    const atr_String& Message() const { return message_; }
    /// Name of the source that raised; empty until raised through a helper.
    const cow_String& Source() const { return source_; }
    /// Line in Source(); 0 until raised through a helper.
    int Line() const { return line_; }

protected:
    /// "name: message" for AsString().
    cow_String Named(const char* name) const;
    void SetMessage(const atr_String& message) { message_ = message; }

private:
    static constexpr auto Fields();

    cls_Uid uid_;
    atr_String message_;
    int code_ = 0;
    cow_String source_;
    int line_ = 0;
    cow_String traceback_;
    mutable nex_TextKeeper texts_;
};
