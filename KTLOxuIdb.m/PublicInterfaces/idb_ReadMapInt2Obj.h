#pragma once

#include <idb_ReadMapObj.h>

/// A stored map from integers to objects.
class OXU_EXPORT idb_ReadMapInt2Obj final : public idb_ReadMapObj<int>
{
public:
    using idb_ReadMapObj::idb_ReadMapObj;
};
