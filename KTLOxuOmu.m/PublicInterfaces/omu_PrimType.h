#pragma once

#include <omu_ObjectToDisplayTypeEnm.h>
#include <omu_Primitive.h>

class omu_InterfaceObj;

/// The type of a displayable object, held as its type string; kind "t". The string may name any type: an
/// object's type need not be one that a viewport displays.
class OXU_EXPORT omu_PrimType : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 31); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimType(const cow_String& typeString = cow_String("None"));
    explicit omu_PrimType(omu_ObjectToDisplayTypeEnm type);
    /// The type of an interface object.
    explicit omu_PrimType(const omu_InterfaceObj& object);
    explicit omu_PrimType(const cls_ReadVisitor& reader);

    const cow_String& Value() const { return m_TypeString; }
    bool SameType(const omu_PrimType& other) const { return m_TypeString == other.m_TypeString; }
    /// Whether this is the interface object's own type.
    bool SameType(const omu_InterfaceObj& object) const;

    /// NONE for a type string that names no displayable object.
    static omu_ObjectToDisplayTypeEnm ConverStringToType(const cow_String& typeString);
    /// "None" for a value that the enumeration does not have.
    static cow_String ConverTypeToString(const omu_ObjectToDisplayTypeEnm& type);

    atr_String TypeString() const override;
    /// The bare type string.
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimType* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    cow_String m_TypeString;
};
