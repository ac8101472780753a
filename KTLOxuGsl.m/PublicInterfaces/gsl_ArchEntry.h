#pragma once

#include <oxu_Export.h>
#include <typ_ArchCompEntry.h>

/// The table of component 0x30A: geometry. A class's index in it is the low half of
/// its type id.
OXU_EXPORT typ_ArchCompEntry gsl_ArchEntry();
