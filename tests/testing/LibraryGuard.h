#pragma once

#include <KTLOxuGeom.h>
#include <testing/StartGuard.h>

/// Starts the whole library for the length of a scope; for programs that link the shared library.
using LibraryGuard = StartGuard<KTLOxuGeom_initialize, KTLOxuGeom_finalize>;
