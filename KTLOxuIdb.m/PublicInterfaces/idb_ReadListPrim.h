#pragma once

#include <cow_List.h>
#include <idb_ElementTraits.h>

/// A stored list of primitive values, T of bool, int, unsigned, float, double or cow_String, into an L of
/// them: element count (int), column count (int), the elements.
///
/// All of it is read by the constructor and served from memory. The cursor stands at -1 until the first Next.
template <class T, class L = cow_List<T>>
class idb_ReadListPrim
{
public:
    /// Reads the record at the stream's position; a count below 1 ends it behind the column count, and reads
    /// as 0. Data that is not there throws bio_DataException.
    explicit idb_ReadListPrim(bio_Ifilter& in) : in_(in)
    {
        in_.Read(count_);
        in_.Read(columns_);
        count_ = idb_CheckedCount(in_, count_, idb_ElementTraits<T>::BYTES);
        if (count_ == 0)
            return;
        list_ = idb_ReadElements<T, L>(in_, count_);
    }

    /// Sets the cursor to `index`, whatever it is; whether there is an element.
    bool Next(int index)
    {
        cursor_ = index;
        return index >= 0 && index < count_;
    }

    int Size() const { return count_; }
    /// 1 for a plain list.
    int Columns() const { return columns_; }
    /// The element at the cursor; nex_RangeException where there is none.
    const T& Read() const { return list_.Get(cursor_); }
    /// The `count` elements from the cursor on, and moves the cursor behind them. Where they are not all
    /// there it raises nex_RangeException, copies nothing and keeps the cursor; a count below 1 does nothing.
    void Read(T* buffer, int count)
    {
        if (count < 1)
            return;
        if (cursor_ < 0 || cursor_ >= count_)
            nex_RaiseRange(cursor_, count_);
        if (count > count_ - cursor_)
            nex_RaiseRange(static_cast<long long>(cursor_) + count - 1, count_);
        for (int i = 0; i < count; ++i)
            buffer[i] = list_.Get(cursor_ + i);
        cursor_ += count;
    }
    /// The whole list, shared.
    const L& Elements() const { return list_; }

private:
    L list_;
    int columns_ = 1;
    bio_Ifilter& in_;
    int count_ = 0;
    int cursor_ = -1;
};
