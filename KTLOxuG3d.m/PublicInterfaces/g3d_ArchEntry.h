#pragma once

#include <oxu_Export.h>
#include <typ_ArchCompEntry.h>

/// The table of component 0x24: the 3D view's points, vectors and errors. A class's index in it is the low
/// half of its type id.
OXU_EXPORT typ_ArchCompEntry g3d_ArchEntry();
