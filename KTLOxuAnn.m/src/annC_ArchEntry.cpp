#include <annC_ArchEntry.h>
#include <iterator>
#include <oxu_Component.h>
#include <typ_Entry.h>

namespace
{
constexpr typ_Entry RESERVED = {oxu_EMPTY, 1, oxu_ROOT, nullptr};

// In index order. Type ids in stored data name these indices: append only, and leave a retired row empty.
constexpr typ_Entry annC_Entries[] = {
    RESERVED,
    {oxu_VALUE, 1, oxu_ROOT, "annC_Anchor"},
    {oxu_VALUE, 1, oxu_ROOT, "annC_Annotation"},
    {oxu_VALUE, 1, oxu_MDL, "annC_AnnotationContainer"},
    {oxu_VALUE, 1, oxu_ANN, "annC_NamedAnchor"},
    {oxu_VALUE, 2, oxu_ANN, "annC_Text"},
    {oxu_VALUE, 2, oxu_ANN, "annC_Arrow"},
    {oxu_VALUE, 1, oxu_ANN, "annC_ViewportAnchor"},
    {oxu_VALUE, 1, oxu_ANN, "annC_Point3DAnchor"},
};
static_assert(std::size(annC_Entries) == 9);
}

typ_ArchCompEntry annC_ArchEntry()
{
    return typ_ArchCompEntry(annC_Entries, std::size(annC_Entries));
}
