#pragma once

/// The project's version; the build sets it.
inline constexpr const char* BAT_VERSION = ORVEX_VERSION;
