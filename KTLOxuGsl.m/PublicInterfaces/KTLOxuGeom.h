#pragma once

#include <oxu_Export.h>

/// Starts the whole library: the base libraries, then the modules Wip, Idb, G3d, Omu, Mdl, Gsl, Ann, Utf.
///
/// running counts what is running: it grows by one for each part that was started for the first time on this
/// library's behalf and by one for the library itself, 10 in a fresh process. Starts are counted: a repeated
/// call moves the counter alone. A module that was started alone before is not counted again, and stopping
/// the library leaves it running.
///
/// Start and stop on one thread, before and after any other use: the counters are not locked.
OXU_EXPORT void KTLOxuGeom_initialize(int& running);

/// Stops what KTLOxuGeom_initialize started, in exactly the reverse order, when the counter comes back to
/// zero.
OXU_EXPORT void KTLOxuGeom_finalize(int& running);

/// The library's own last step of starting, behind all modules. It has a counter of its own and is no module:
/// it leaves running as it is.
OXU_EXPORT void KTLOxuGeom_specific_initialize(int& running);
OXU_EXPORT void KTLOxuGeom_specific_finalize(int& running);
