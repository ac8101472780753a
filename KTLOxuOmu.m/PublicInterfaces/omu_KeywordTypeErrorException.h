#pragma once

#include <cow_String.h>
#include <omu_TypeErrorException.h>
#include <oxu_Export.h>

/// A keyword argument is of the wrong type: "scale; found String, expecting Float", or, within a nesting
/// path, "s.f['scale']; found String, expecting Float".
class OXU_EXPORT omu_KeywordTypeErrorException : public omu_TypeErrorException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 2); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_KeywordTypeErrorException() = default;
    explicit omu_KeywordTypeErrorException(const cls_ReadVisitor& reader);

    [[noreturn]] void Propagate() const override;
    omu_KeywordTypeErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;

    cow_String m_Keyword;    ///< keyword of the argument
    cow_String m_Expecting;  ///< name of the type expected
    cow_String m_Found;      ///< name of the type found
    cow_String m_NestingStr; ///< path of the object or command called; may be empty
};
