#pragma once

/// Marks what libOrvexBase.so exports; everything else stays hidden.
#define BAS_EXPORT __attribute__((visibility("default")))
