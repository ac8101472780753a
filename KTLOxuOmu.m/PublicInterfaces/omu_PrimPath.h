#pragma once

#include <cow_List.h>
#include <omu_Primitive.h>

/// A path, kind "p": of a file, one text, or of an object, the steps that lead to it.
class OXU_EXPORT omu_PrimPath : public omu_Primitive
{
public:
    /// The codes that stored data hold.
    enum ContextTypeEnm { FILE_PATH = 0, OBJECT_PATH = 1 };

    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 23); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimPath(const cow_String& file = cow_String());
    explicit omu_PrimPath(const cow_List<cow_String>& context, int contextType = OBJECT_PATH);
    explicit omu_PrimPath(const cls_ReadVisitor& reader);

    const cow_List<cow_String>& Context() const { return m_Context; }
    int ContextType() const { return m_ContextType; }
    /// The first text, or for an object path the steps joined with "."; empty for an empty context.
    cow_String PathText() const;

    atr_String TypeString() const override;
    /// The path text, quoted as omu_PrimString quotes.
    cow_String AsString(int nesting) const override;
    /// The same steps under the same context type.
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimPath* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    cow_List<cow_String> m_Context;
    int m_ContextType = FILE_PATH;
};
