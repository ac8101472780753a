#pragma once

#include <oxu_Export.h>

/// Starts the geometry module: enters its component table and declares its metadata. Counted: only the first
/// call starts, and adds one to running.
OXU_EXPORT void KTLOxuGsl_initialize(int& running);

/// Counted: only the call that matches the first start stops the module and takes one from running.
OXU_EXPORT void KTLOxuGsl_finalize(int& running);
