#pragma once

#include <nex_CommandException.h>
#include <oxu_Export.h>

/// A name that objects of the application cannot have. Other codes than those of m_Error give an empty
/// message.
class OXU_EXPORT omu_OrvNameErrorException : public nex_CommandException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 35); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_OrvNameErrorException() = default;
    explicit omu_OrvNameErrorException(const cls_ReadVisitor& reader);

    [[noreturn]] void Propagate() const override;
    omu_OrvNameErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;
    const char* PythonType() const override { return "OrvexNameError"; }

    int m_Error = 0; ///< 0: invalid name; 1: empty; 2: invalid job name; 3: invalid model name
};
