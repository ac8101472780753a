#pragma once

#include <cow_String.h>
#include <nex_CommandException.h>
#include <oxu_Export.h>

/// A member could not be set or found.
class OXU_EXPORT omu_AttributeErrorException : public nex_CommandException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 6); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_AttributeErrorException() = default;
    explicit omu_AttributeErrorException(const cls_ReadVisitor& reader);

    [[noreturn]] void Propagate() const override;
    omu_AttributeErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;
    const char* PythonType() const override { return "AttributeError"; }

    int m_ErrorType =
        0; ///< 0: attributes are read-only; 1: the one named is; 2: m_Attribute is the whole message
    cow_String m_Attribute; ///< name of the attribute, or the whole message
};
