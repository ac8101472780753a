#pragma once

#include <bas_Export.h>

/// Seconds of a steady clock (std::chrono::steady_clock), from a start that means nothing.
BAS_EXPORT double omi_gettimecounter() noexcept;
