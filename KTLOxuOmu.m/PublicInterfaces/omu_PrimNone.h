#pragma once

#include <omu_Primitive.h>

/// None, kind "n". The flag tells a None that was given from one that stands for nothing given; two are equal
/// when their flags are. The text is "None" for both.
class OXU_EXPORT omu_PrimNone : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 29); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimNone(bool isSet = true);
    explicit omu_PrimNone(const cls_ReadVisitor& reader);

    bool IsSet() const { return m_IsSet; }

    atr_String TypeString() const override;
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimNone* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    bool m_IsSet = true;
};
