#pragma once

#include <idb_ReadMapObj.h>

/// A stored map from texts to objects.
class OXU_EXPORT idb_ReadMapString2Obj final : public idb_ReadMapObj<cow_String>
{
public:
    using idb_ReadMapObj::idb_ReadMapObj;
};
