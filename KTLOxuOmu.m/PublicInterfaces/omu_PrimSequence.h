#pragma once

#include <omu_Primitive.h>

/// What tuples, lists and numeric arrays share: a length, and items by position. Abstract.
class OXU_EXPORT omu_PrimSequence : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 32); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    atr_String TypeString() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    virtual int Length() const = 0;
    /// A new value equal to the item, owned by the caller; null where the sequence holds null. A position
    /// outside 0 .. Length() - 1 raises the out-of-range error: -1 is not the last item.
    virtual omu_Primitive* Index(int index) const = 0;
    /// The items from `from` up to but not including `to`, both clamped to 0 .. Length(), as a new sequence
    /// of the same class that the caller owns.
    virtual omu_PrimSequence* Slice(int from, int to) const = 0;
    /// The items so many times over, none for a count below 1, as a new sequence of the same class that the
    /// caller owns. More than 2147483647 items raise omu_OverflowErrorException.
    virtual omu_PrimSequence* Repeat(int count) const = 0;
    /// This sequence's items, then the other's, as a new sequence of this class that the caller owns.
    virtual omu_PrimSequence* Concat(const omu_PrimSequence* other) const = 0;

protected:
    explicit omu_PrimSequence(char kind) : omu_Primitive(kind) {}
    omu_PrimSequence(const cls_ReadVisitor& reader, char kind);
};
