#include <idb_WriteMapString2Obj.h>

idb_WriteMapString2Obj::~idb_WriteMapString2Obj()
{
    FinishQuietly();
}
