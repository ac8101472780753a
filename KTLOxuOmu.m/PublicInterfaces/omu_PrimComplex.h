#pragma once

#include <omi_complex.h>
#include <omu_Primitive.h>

/// A complex number, kind "x".
class OXU_EXPORT omu_PrimComplex : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 34); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimComplex(const omi_complex& value = omi_complex());
    explicit omu_PrimComplex(const cls_ReadVisitor& reader);

    const omi_complex& Value() const { return m_Value; }

    atr_String TypeString() const override;
    /// "(1+2j)", both parts with 15 significant digits and no ".0"; a real part of exactly +0.0 is left out
    /// with the brackets: "2j".
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimComplex* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    omi_complex m_Value;
};
