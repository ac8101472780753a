#include <cls_ArchEntry.h>
#include <iterator>

namespace
{
// In index order. Type ids in stored data name these indices: append only.
constexpr typ_Entry cls_Entries[] = {
    {0, 1, 0, nullptr}, // reserved
    {7, 1, 0, "cow_List"},
    {7, 1, 0, "cow_Map"},
};
}

typ_ArchCompEntry cls_ArchEntry()
{
    return typ_ArchCompEntry(cls_Entries, static_cast<unsigned>(std::size(cls_Entries)));
}
