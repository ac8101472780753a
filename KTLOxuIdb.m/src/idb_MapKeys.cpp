#include <cow_HashIndex.h>
#include <idb_Fault.h>
#include <idb_MapKeys.h>

#include <algorithm>
#include <functional>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_MapKeys";

cow_String KeyText(const cow_String& key)
{
    return key;
}
cow_String KeyText(int key)
{
    return idb_Fault::Text(key);
}

// The first key that stands further ahead too; null where all differ.
template <class K>
const K* FindRepeated(const cow_List<K>& keys)
{
    const auto risesNot = [](const K& a, const K& b) { return !(a < b); };
    if (std::adjacent_find(keys.begin(), keys.end(), risesNot) == keys.end())
        return nullptr;
    cow_HashIndex index;
    index.Reserve(keys.Length());
    for (int i = 0; i < keys.Length(); ++i)
    {
        const K& key = keys.Get(i);
        const std::size_t hash = std::hash<K>()(key);
        if (index.Find(hash, [&](int other) { return keys.Get(other) == key; }) >= 0)
            return &key;
        index.Add(hash, i);
    }
    return nullptr;
}

template <class K>
void RequireRead(const cow_List<K>& keys, std::uint64_t at)
{
    if (const K* const key = FindRepeated(keys); key != nullptr)
        idb_Fault::Raise(SOURCE, __LINE__, {.byte = static_cast<std::int64_t>(at)}, idb_Fault::KEY_TWICE,
                         KeyText(*key), idb_Fault::Text(at));
}

template <class K>
void RequireWritten(const cow_List<K>& keys)
{
    if (const K* const key = FindRepeated(keys); key != nullptr)
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::WRITE_KEY_TWICE, KeyText(*key));
}
}

void idb_MapKeys::RequireDistinctRead(const cow_List<int>& keys, std::uint64_t at)
{
    RequireRead(keys, at);
}
void idb_MapKeys::RequireDistinctRead(const cow_List<cow_String>& keys, std::uint64_t at)
{
    RequireRead(keys, at);
}
void idb_MapKeys::RequireDistinctWritten(const cow_List<int>& keys)
{
    RequireWritten(keys);
}
void idb_MapKeys::RequireDistinctWritten(const cow_List<cow_String>& keys)
{
    RequireWritten(keys);
}
