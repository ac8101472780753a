#pragma once

#include <cow_Map.h>
#include <idb_WriteMapPrim.h>

/// A map from texts to primitive values, T of double, float, int, cow_String or unsigned, stored as
/// idb_ReadMapString2Prim reads it.
template <class T, class M = cow_Map<cow_String, T>>
class idb_WriteMapString2Prim final : public idb_WriteMapPrim<cow_String, T>
{
public:
    using idb_WriteMapPrim<cow_String, T>::idb_WriteMapPrim;
    ~idb_WriteMapString2Prim() override { this->FinishQuietly(); }

    using idb_WriteMapPrim<cow_String, T>::Write;
    /// Adds all pairs in the map's order.
    void Write(const M& map)
    {
        for (const auto& [key, value] : map)
            Write(key, value);
    }
};
