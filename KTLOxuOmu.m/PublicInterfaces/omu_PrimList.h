#pragma once

#include <omu_PrimTuple.h>

/// A sequence that scripts change, with an optional limit to its length. Kind "(" like a tuple: only the
/// class and TypeString tell them apart. A list equals a list with equal items, and no tuple.
class OXU_EXPORT omu_PrimList : public omu_PrimTuple
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 21); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// Everything from which tuples are made, with no limit to the length.
    using omu_PrimTuple::omu_PrimTuple;
    omu_PrimList() = default;
    /// Room for `count` items, at most `maxSize` of them; 0 or less sets no limit.
    omu_PrimList(int count, int maxSize, char kind = KIND);
    explicit omu_PrimList(const cls_ReadVisitor& reader);

    // Put, and reading into a list, beyond the limit raise omu_OverflowErrorException "list is full; maximum
    // size is %d" and change nothing.

    /// Takes the object over, also when it raises; null is a null item.
    void Set(int index, omu_Primitive* owned) { SetItem(index, owned); }
    void Remove(int index) { RemoveItem(index); }
    void Clear() noexcept { ClearItems(); }

    /// 0 or less: no limit.
    int MaxSize() const { return m_MaxSize; }

    // What they give has no limit to its length.

    omu_PrimList* Slice(int from, int to) const override;
    omu_PrimList* Repeat(int count) const override;
    omu_PrimList* Concat(const omu_PrimSequence* other) const override;

    atr_String TypeString() const override;
    /// "[1, 2.0]", "[1]", "[]".
    cow_String AsString(int nesting) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimList* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

protected:
    void RequireRoom(int length) const override;

private:
    int m_MaxSize = 0;
};
