#pragma once

#include <oxu_Export.h>

/// Starts the annotation module: enters its component table and declares its metadata. Counted: only the
/// first call starts, and adds one to running.
OXU_EXPORT void KTLOxuAnn_initialize(int& running);

/// Counted: only the call that matches the first start stops the module and takes one from running.
OXU_EXPORT void KTLOxuAnn_finalize(int& running);
