#pragma once

#include <cow_Map.h>
#include <idb_WriteMapPrim.h>

/// A map from integers to primitive values, T of double, float, int, cow_String or unsigned, stored as
/// idb_ReadMapInt2Prim reads it.
template <class T, class M = cow_Map<int, T>>
class idb_WriteMapInt2Prim final : public idb_WriteMapPrim<int, T>
{
public:
    using idb_WriteMapPrim<int, T>::idb_WriteMapPrim;
    ~idb_WriteMapInt2Prim() override { this->FinishQuietly(); }

    using idb_WriteMapPrim<int, T>::Write;
    /// Adds all pairs in the map's order.
    void Write(const M& map)
    {
        for (const auto& [key, value] : map)
            Write(key, value);
    }
};
