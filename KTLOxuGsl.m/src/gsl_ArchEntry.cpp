#include <gsl_ArchEntry.h>
#include <iterator>
#include <oxu_Component.h>
#include <typ_Entry.h>

namespace
{
constexpr typ_Entry RESERVED = {oxu_EMPTY, 1, oxu_ROOT, nullptr};

// In index order. Type ids in stored data name these indices: append only, and leave a retired row empty.
constexpr typ_Entry gsl_Phase0TEntries[] = {
    RESERVED,
    {oxu_VALUE, 1, oxu_ROOT, "gsl_Point"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_Matrix"},
    {oxu_VALUE, 1, oxu_GSL, "gsl_Vector"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_Plane"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_Dot"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_StLine"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_BBox"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_Segment"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_ArrayPoint"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_LineArray"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_ModelSegment"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_ModelSegmentArray"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_PlaneArray"},
    {oxu_VALUE, 1, oxu_ROOT, "gsl_DotArray"},
};
static_assert(std::size(gsl_Phase0TEntries) == 15);
}

typ_ArchCompEntry gsl_ArchEntry()
{
    return typ_ArchCompEntry(gsl_Phase0TEntries, std::size(gsl_Phase0TEntries));
}
