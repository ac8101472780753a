#pragma once

#include <idb_WriteMapPrim.h>

/// A map from texts to objects, by their numbers, stored as idb_ReadMapString2Obj reads it.
class OXU_EXPORT idb_WriteMapString2Obj final : public idb_WriteMapPrim<cow_String, unsigned>
{
public:
    using idb_WriteMapPrim::idb_WriteMapPrim;
    ~idb_WriteMapString2Obj() override;
};
