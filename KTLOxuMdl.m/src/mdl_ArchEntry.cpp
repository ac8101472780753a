#include <iterator>
#include <mdl_ArchEntry.h>
#include <oxu_Component.h>
#include <typ_Entry.h>

namespace
{
constexpr typ_Entry RESERVED = {oxu_EMPTY, 1, oxu_ROOT, nullptr};
// Retired rows of this table are zero throughout, unlike its reserved one.
constexpr typ_Entry RETIRED = {oxu_EMPTY, 0, oxu_ROOT, nullptr};

// In index order. Type ids in stored data name these indices: append only, and leave a retired row empty.
constexpr typ_Entry mdl_Entries[] = {
    RESERVED,
    {oxu_VALUE, 13, oxu_MDL, "mdl_Repository"},
    // 2 to 12
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    RETIRED,
    {oxu_VALUE, 1, oxu_ROOT, "mdl_Extension"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropString"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropDouble"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropBool"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropListInt"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropertyTable"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropInt"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_Prop1DArrayInt"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropListString"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_Prop1DArrayListFloat"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropBoolArray"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_PropStringArray"},
    {oxu_VALUE, 1, oxu_ROOT, "mdl_JaggedArray"},
};
static_assert(std::size(mdl_Entries) == 26);
}

typ_ArchCompEntry mdl_ArchEntry()
{
    return typ_ArchCompEntry(mdl_Entries, std::size(mdl_Entries));
}
