#pragma once

#include <omu_Primitive.h>

/// What dictionaries of every key type share; kind "{". Abstract.
class OXU_EXPORT omu_PrimDictionaryBase : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 18); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// The kind of the keys: "s" for text, "i" for integers. Fixed by the class and stored with it; data that
    /// say otherwise raise omu_ValueErrorException.
    char Represents() const { return m_Represents; }
    /// 1 + the depth of the deepest value; see omu_NestingDepth.
    int Depth() const { return m_Depth; }

    atr_String TypeString() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    virtual int Length() const = 0;

protected:
    explicit omu_PrimDictionaryBase(char represents);
    omu_PrimDictionaryBase(const cls_ReadVisitor& reader, char represents);

    /// Notes that `value`, which may be null, comes in. What is nested too deep raises.
    void Deepen(const omu_Primitive* value);

private:
    char m_Represents;
    int m_Depth = 1;
};
