#pragma once

#include <cow_String.h>
#include <omu_TypeErrorException.h>
#include <oxu_Export.h>

/// A positional argument is of the wrong type: "arg2; found String, expecting Float".
///
/// Within a nesting path the position is told from 0, in brackets, on purpose: "s.f[1]; found String,
/// expecting Float" is the same argument.
class OXU_EXPORT omu_ArgTypeErrorException : public omu_TypeErrorException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 3); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_ArgTypeErrorException() = default;
    explicit omu_ArgTypeErrorException(const cls_ReadVisitor& reader);

    [[noreturn]] void Propagate() const override;
    omu_ArgTypeErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;

    int m_ArgNum = 0;        ///< position of the argument, from 1
    cow_String m_Expecting;  ///< name of the type expected
    cow_String m_Found;      ///< name of the type found
    cow_String m_NestingStr; ///< path of the object or command called; may be empty
};
