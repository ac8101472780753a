#pragma once

#include <cow_Map.h>
#include <idb_ReadMapPrim.h>

/// A stored map from integers to primitive values, T of double, float, int, cow_String or unsigned.
template <class T, class M = cow_Map<int, T>>
class idb_ReadMapInt2Prim : public idb_ReadMapPrim<int, T>
{
public:
    using idb_ReadMapPrim<int, T>::idb_ReadMapPrim;

    /// The pairs in stored order.
    M Map() const
    {
        M map;
        for (int i = 0; i < this->Size(); ++i)
            map.Insert(this->Keys().Get(i), this->Values().Get(i));
        return map;
    }
};
