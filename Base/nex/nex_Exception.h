#pragma once

#include <KTLBasException.h>

/// An error with a message. Base of the scripting errors, of the refusals of built-in operations, and
/// of the out-of-range and internal errors.
class BAS_EXPORT nex_Exception : public KTLBasException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x1F, 2); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    nex_Exception();
    explicit nex_Exception(const atr_String& message, int code = 0);
    explicit nex_Exception(const cls_ReadVisitor& reader);
    nex_Exception(const nex_Exception&);
    nex_Exception& operator=(const nex_Exception&);
    ~nex_Exception() override;

    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override;
    nex_Exception* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;
};
