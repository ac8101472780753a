#pragma once

#include <cow_List.h>
#include <idb_CollectionWriter.h>
#include <idb_ElementTraits.h>

/// A list of primitive values, T of bool, int, unsigned, float, double or cow_String, gathered in an L and
/// stored as idb_ReadListPrim reads it.
template <class T, class L = cow_List<T>>
class idb_WriteListPrim final : public idb_CollectionWriter
{
public:
    /// `columns` travels with the list; 1 for a plain one.
    idb_WriteListPrim(bio_Ofilter& out, int columns) : idb_CollectionWriter(out), columns_(columns) {}
    ~idb_WriteListPrim() override { FinishQuietly(); }

    void Write(const T& value) { list_.Append(value); }
    /// A count below 1 does nothing.
    void Write(const T* values, int count)
    {
        if (count < 1)
            return;
        if (list_.IsEmpty())
            list_ = L::FromArray(values, count);
        else
            list_.AppendList(L::FromArray(values, count));
    }
    /// These are all the elements, in place of those written; they stay where they are until the record is
    /// emitted. Spares long lists the copy.
    void Lend(std::span<const T> values) { lent_ = values; }

private:
    void Emit(bio_Ofilter& out) const override
    {
        const std::span<const T> all =
            lent_.data() != nullptr
                ? lent_
                : std::span<const T>(list_.Data(), static_cast<std::size_t>(list_.Length()));
        out.Write(static_cast<int>(all.size()));
        out.Write(columns_);
        idb_WriteElements(out, all);
    }

    L list_;
    std::span<const T> lent_;
    int columns_;
};
