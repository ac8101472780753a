#pragma once

#include <cow_String.h>
#include <nex_CommandException.h>
#include <oxu_Export.h>

/// A number outside the limits of its argument: "n must be an Integer in the range: 1 <= n <= 10".
///
/// Limits are kept as text. A qualifier outside 0..2 on either side leaves nothing of the message but its
/// beginning, "n must be " with its blank; so do two qualifiers that both say "no limit".
class OXU_EXPORT omu_RangeErrorException : public nex_CommandException
{
public:
    /// What m_KeywordType says of the argument.
    enum KeywordType { INTEGER = 1, FLOATING_POINT = 2 };
    /// What the qualifiers say of their limits.
    enum Qualifier { NO_LIMIT = 0, INCLUSIVE = 1, EXCLUSIVE = 2 };

    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 9); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_RangeErrorException() = default;
    explicit omu_RangeErrorException(const cls_ReadVisitor& reader);

    /// Keep the limit in decimal.
    void SetLowerLimitAsInt(int limit);
    void SetHigherLimitAsInt(int limit);
    /// Keep the limit as the scripting language writes it ("1.0"), with 17 digits where fewer read back
    /// otherwise.
    void SetLowerLimitAsDouble(double limit);
    void SetHigherLimitAsDouble(double limit);

    /// The limit read back as atoi does: leading blanks, sign, digits; 0 when there are none, and
    /// the nearest int where the number is beyond.
    int LowerLimitAsInt() const;
    int HigherLimitAsInt() const;
    /// The limit read back as atof does in the "C" locale: leading blanks, sign, longest number; 0 when there
    /// is none.
    double LowerLimitAsDouble() const;
    double HigherLimitAsDouble() const;

    [[noreturn]] void Propagate() const override;
    omu_RangeErrorException* Copy() const override;
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    cow_String JournalMessage() const override;
    const char* PythonType() const override { return "RangeError"; }

    cow_String m_Keyword;  ///< name of the argument
    int m_KeywordType = 0; ///< a KeywordType; any other value leaves the type unsaid
    cow_String m_LowerLimitAsString;
    int m_LowerLimitQualifier = NO_LIMIT; ///< a Qualifier
    cow_String m_HigherLimitAsString;
    int m_HigherLimitQualifier = NO_LIMIT; ///< a Qualifier

private:
    cow_String Beginning() const;
};
