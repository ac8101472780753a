#pragma once

#include <omu_Primitive.h>

/// A text that may have been translated, kind "l". Equality and stored data go by the final text.
class OXU_EXPORT omu_PrimTranslatedString : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 48); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimTranslatedString(const atr_String& text = atr_String());
    explicit omu_PrimTranslatedString(const cls_ReadVisitor& reader);

    const atr_String& AsTranslatedString() const { return m_Value; }
    /// The final text; ends in a zero byte and is never null.
    const char* AsCharPtr() const { return m_Value.AsCharPtr(); }

    atr_String TypeString() const override;
    /// The final text, quoted as omu_PrimString quotes.
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimTranslatedString* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    atr_String m_Value;
};
