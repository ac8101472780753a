#pragma once

/// Marks what libKTLOxuGeom.so exports; everything else stays hidden.
#define OXU_EXPORT __attribute__((visibility("default")))
