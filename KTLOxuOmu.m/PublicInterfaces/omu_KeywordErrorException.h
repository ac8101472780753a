#pragma once

#include <cow_String.h>
#include <omu_TypeErrorException.h>
#include <oxu_Export.h>

/// A keyword that the command does not know: "keyword error on colour". A nesting path stands right before
/// "keyword", without a blank, on purpose.
class OXU_EXPORT omu_KeywordErrorException : public omu_TypeErrorException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 5); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_KeywordErrorException() = default;
    explicit omu_KeywordErrorException(const cls_ReadVisitor& reader);

    [[noreturn]] void Propagate() const override;
    omu_KeywordErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;

    cow_String m_Keyword;    ///< the unknown keyword
    cow_String m_NestingStr; ///< path of the object or command called; may be empty
};
