#pragma once

#include <cow_String.h>
#include <omu_TypeErrorException.h>
#include <oxu_Export.h>

/// A command was given too few or too many arguments: "s.v; too many arguments; expected 2, got 3".
class OXU_EXPORT omu_ArgNumberErrorException : public omu_TypeErrorException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 4); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_ArgNumberErrorException() = default;
    omu_ArgNumberErrorException(int expecting, int found, cow_String nesting);
    explicit omu_ArgNumberErrorException(const cls_ReadVisitor& reader);

    [[noreturn]] void Propagate() const override;
    omu_ArgNumberErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;

    int m_Expecting = 0;     ///< number of arguments that the command expects
    int m_Found = 0;         ///< number given
    cow_String m_NestingStr; ///< path of the object or command called; may be empty
};
