#pragma once

#include <oxu_Export.h>

/// Starts the scripting values, exceptions and symbolic constants: enters their component table, declares
/// their metadata and creates the symbolic-constant table. Counted: only the first call starts, and adds one
/// to running.
OXU_EXPORT void KTLOxuOmu_initialize(int& running);

/// Counted: only the call that matches the first start stops the module, destroys the symbolic-constant table
/// and takes one from running.
OXU_EXPORT void KTLOxuOmu_finalize(int& running);
