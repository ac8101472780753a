#include <idb_WriteMapInt2Obj.h>

idb_WriteMapInt2Obj::~idb_WriteMapInt2Obj()
{
    FinishQuietly();
}
