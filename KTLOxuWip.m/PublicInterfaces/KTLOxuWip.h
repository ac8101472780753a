#pragma once

#include <oxu_Export.h>

/// Starts the progress reporting module, which has no component table and declares no metadata. Counted: only
/// the first call starts, and adds one to running.
OXU_EXPORT void KTLOxuWip_initialize(int& running);

/// Counted: only the call that matches the first start stops the module and takes one from running.
OXU_EXPORT void KTLOxuWip_finalize(int& running);
