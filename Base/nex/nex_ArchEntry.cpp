#include <iterator>
#include <nex_ArchEntry.h>

namespace
{
// In index order. Type ids in stored data name these indices: append only.
constexpr typ_Entry nex_Entries[] = {
    {0, 1, 0, nullptr}, // reserved
    {4, 1, 0, "KTLBasException"},
    {4, 1, 0x1F, "nex_Exception"},
    {4, 2, 0x1F, "nex_CommandException"},
    {4, 2, 0x1F, "nex_PrimException"},
};
}

typ_ArchCompEntry nex_ArchEntry()
{
    return typ_ArchCompEntry(nex_Entries, static_cast<unsigned>(std::size(nex_Entries)));
}
