#pragma once

#include <bas_Export.h>
#include <typ_ArchCompEntry.h>

/// The component table of the exceptions (0x1F): 1 KTLBasException, 2 nex_Exception, 3
/// nex_CommandException, 4 nex_PrimException.
BAS_EXPORT typ_ArchCompEntry nex_ArchEntry();
