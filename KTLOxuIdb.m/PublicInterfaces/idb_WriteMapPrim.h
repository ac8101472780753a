#pragma once

#include <cow_List.h>
#include <idb_CollectionWriter.h>
#include <idb_ElementTraits.h>
#include <idb_MapKeys.h>

/// A map of primitive values or object numbers, whatever its key, stored as idb_ReadMapPrim reads it: the
/// base of the map writers, whose destructors emit the record.
template <class K, class T>
class idb_WriteMapPrim : public idb_CollectionWriter
{
public:
    using idb_CollectionWriter::idb_CollectionWriter;

    /// Adds a pair behind the others. The keys of a map differ: one that is given twice raises
    /// idb_MementoException when the record is emitted.
    void Write(const K& key, const T& value)
    {
        keys_.Append(key);
        values_.Append(value);
    }

private:
    void Emit(bio_Ofilter& out) const final
    {
        idb_MapKeys::RequireDistinctWritten(keys_);
        out.Write(keys_.Length());
        for (int i = 0; i < keys_.Length(); ++i)
        {
            out.Write(keys_.Get(i));
            out.Write(values_.Get(i));
        }
    }

    cow_List<K> keys_;
    cow_List<T> values_;
};
