#pragma once

#include <idb_WriteMapPrim.h>

/// A map from integers to objects, by their numbers, stored as idb_ReadMapInt2Obj reads it.
class OXU_EXPORT idb_WriteMapInt2Obj final : public idb_WriteMapPrim<int, unsigned>
{
public:
    using idb_WriteMapPrim::idb_WriteMapPrim;
    ~idb_WriteMapInt2Obj() override;
};
