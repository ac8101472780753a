#pragma once

#include <omu_TypeErrorException.h>
#include <oxu_Export.h>

/// An operation of the scripting language was asked of a value that does not have it. No fields.
class OXU_EXPORT omu_GenericTypeErrorException : public omu_TypeErrorException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 36); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_GenericTypeErrorException() = default;
    explicit omu_GenericTypeErrorException(const cls_ReadVisitor& reader);

    [[noreturn]] void Propagate() const override;
    omu_GenericTypeErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;
};
