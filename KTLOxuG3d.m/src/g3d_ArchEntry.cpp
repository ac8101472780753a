#include <g3d_ArchEntry.h>
#include <iterator>
#include <oxu_Component.h>
#include <typ_Entry.h>

namespace
{
constexpr typ_Entry RESERVED = {oxu_EMPTY, 1, oxu_ROOT, nullptr};

// In index order. Type ids in stored data name these indices: append only, and leave a retired row empty.
constexpr typ_Entry g3d_Entries[] = {
    RESERVED,
    {oxu_VALUE, 1, oxu_ROOT, "g3d_Vector"},
    {oxu_VALUE, 1, oxu_ROOT, "g3d_Point"},
    {oxu_EXCEPTION, 3, oxu_NEX, "g3d_ColorErrorException"},
};
static_assert(std::size(g3d_Entries) == 4);
}

typ_ArchCompEntry g3d_ArchEntry()
{
    return typ_ArchCompEntry(g3d_Entries, std::size(g3d_Entries));
}
