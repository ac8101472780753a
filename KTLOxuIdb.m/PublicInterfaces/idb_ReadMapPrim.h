#pragma once

#include <cow_List.h>
#include <idb_ElementTraits.h>
#include <idb_MapKeys.h>

/// A stored map of primitive values, whatever its key: pair count (int), then each key and its value. The
/// base of idb_ReadMapInt2Prim and idb_ReadMapString2Prim, and like idb_ReadListPrim in all else. A key that
/// stands twice raises idb_MementoException.
template <class K, class T>
class idb_ReadMapPrim
{
public:
    explicit idb_ReadMapPrim(bio_Ifilter& in)
    {
        const std::uint64_t at = in.Position();
        int count = 0;
        in.Read(count);
        count = idb_CheckedCount(in, count, idb_ElementTraits<K>::BYTES + idb_ElementTraits<T>::BYTES);
        keys_ = cow_List<K>::Filled(count, K());
        values_ = cow_List<T>::Filled(count, T());
        K* const keys = keys_.WriteData();
        T* const values = values_.WriteData();
        for (int i = 0; i < count; ++i)
        {
            in.Read(keys[i]);
            in.Read(values[i]);
        }
        idb_MapKeys::RequireDistinctRead(keys_, at);
    }

    bool Next(int index)
    {
        cursor_ = index;
        return index >= 0 && index < Size();
    }

    int Size() const { return keys_.Length(); }
    /// Key and value at the cursor; nex_RangeException where there are none.
    const K& Key() const { return keys_.Get(cursor_); }
    const T& Read() const { return values_.Get(cursor_); }
    /// All keys and all values in stored order.
    const cow_List<K>& Keys() const { return keys_; }
    const cow_List<T>& Values() const { return values_; }

private:
    cow_List<K> keys_;
    cow_List<T> values_;
    int cursor_ = -1;
};
