#pragma once

/** Marks what libKTLOxuGeom.so exports; everything else stays hidden. C reads this header too. */
#define OXU_EXPORT __attribute__((visibility("default")))
