#pragma once

#include <nex_Exception.h>

/// A built-in operation was refused: "Error: Cannot coerce.", "Error: Illegal operation for type.".
class BAS_EXPORT nex_PrimException : public nex_Exception
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x1F, 4); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    nex_PrimException();
    explicit nex_PrimException(const atr_String& message, int code = 0);
    explicit nex_PrimException(const cls_ReadVisitor& reader);
    nex_PrimException(const nex_PrimException&);
    nex_PrimException& operator=(const nex_PrimException&);
    ~nex_PrimException() override;

    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override;
    nex_PrimException* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;
};
