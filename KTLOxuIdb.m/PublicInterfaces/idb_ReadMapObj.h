#pragma once

#include <idb_ReadListObj.h>
#include <idb_ReadMapPrim.h>

/// A stored map to objects, whatever its key: pair count (int), then each key and its object's number. The
/// base of idb_ReadMapInt2Obj and idb_ReadMapString2Obj, and like idb_ReadListObj in all else.
template <class K>
class idb_ReadMapObj : public idb_ReadListObj
{
public:
    idb_ReadMapObj(idb_MementoRead& memento, bio_Ifilter& in) : idb_ReadListObj(memento)
    {
        const idb_ReadMapPrim<K, unsigned> pairs(in);
        keys_ = pairs.Keys();
        SetNumbers(std::vector<std::uint32_t>(pairs.Values().begin(), pairs.Values().end()));
    }

    /// The key at the cursor; nex_RangeException where there is none.
    const K& Key() const { return keys_.Get(Cursor()); }
    /// All keys in stored order.
    const cow_List<K>& Keys() const { return keys_; }

private:
    cow_List<K> keys_;
};
