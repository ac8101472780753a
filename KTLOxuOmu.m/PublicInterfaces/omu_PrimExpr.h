#pragma once

#include <omu_Primitive.h>

/// An expression of the scripting language, held as its source text; kind "e".
class OXU_EXPORT omu_PrimExpr : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 26); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimExpr(const cow_String& source = cow_String());
    explicit omu_PrimExpr(const cls_ReadVisitor& reader);

    const cow_String& Value() const { return m_Value; }

    atr_String TypeString() const override;
    /// The source text, unchanged.
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimExpr* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    cow_String m_Value;
};
