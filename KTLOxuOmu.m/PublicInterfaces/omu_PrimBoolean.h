#pragma once

#include <omu_Primitive.h>

/// True or False, kind "b".
class OXU_EXPORT omu_PrimBoolean : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 49); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimBoolean(bool value = false);
    explicit omu_PrimBoolean(const cls_ReadVisitor& reader);

    bool Value() const { return m_Value; }

    atr_String TypeString() const override;
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimBoolean* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    bool m_Value = false;
};
