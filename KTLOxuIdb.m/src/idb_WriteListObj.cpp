#include <idb_WriteListObj.h>

idb_WriteListObj::~idb_WriteListObj()
{
    FinishQuietly();
}

void idb_WriteListObj::Emit(bio_Ofilter& out) const
{
    out.Write(static_cast<int>(numbers_.size()));
    out.WriteArray(std::span<const std::uint32_t>(numbers_));
}
