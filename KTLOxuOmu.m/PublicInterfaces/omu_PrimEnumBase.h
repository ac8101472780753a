#pragma once

#include <cow_Map.h>
#include <omu_EnumEntry.h>
#include <omu_Primitive.h>

/// A symbolic constant: an upper-case name that stands for the value of some enumeration. Kind "c".
///
/// It holds the name alone, unchecked; the enumeration that it belongs to is what omu_PrimEnum knows.
/// Constants are equal when their names are, also across enumerations: NONE of one is NONE of the other.
/// Stored data hold every enumeration's constants as this class, under the registered name "omu_PrimEnum".
class OXU_EXPORT omu_PrimEnumBase : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 27); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimEnumBase(const cow_String& name = cow_String());
    explicit omu_PrimEnumBase(const cls_ReadVisitor& reader);

    /// Takes any name, also one that the enumeration does not have.
    void SetValue(const char* name);

    const cow_String& GetString() const { return m_StringValue; }
    /// "{SOLID: 0, DASHED: 2}", in table order, for error messages.
    cow_String PermissibleValuesAsString() const;

    /// The permissible names, "SOLID or DASHED", as type errors show them.
    atr_String TypeString() const override;
    /// The name, unquoted.
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimEnumBase* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    /// Name to value, in table order; empty for a constant of no known enumeration.
    virtual cow_Map<cow_String, unsigned> PermissibleValues() const;

protected:
    /// The row of that name or value, compared whole; null where there is none.
    static const omu_EnumEntry* FindEntry(const omu_EnumEntry* table, const cow_String& name);
    static const omu_EnumEntry* FindEntry(const omu_EnumEntry* table, int value);
    static cow_Map<cow_String, unsigned> MapOf(const omu_EnumEntry* table);

    /// Raises omu_ValueErrorException with the template filled by the name or value given, then by the
    /// permissible values.
    [[noreturn]] void RaiseNotAllowed(const char* messageTemplate, const cow_String& given, int line) const;
    [[noreturn]] void RaiseNotAllowed(const char* messageTemplate, int given, int line) const;

private:
    static constexpr auto Fields();

    cow_String m_StringValue;
};
