#pragma once

/// What pictures tell of annotations that are not drawn as asked.
namespace vwr_Notes
{
inline constexpr const char* NO_PLACE = "not drawn: a coordinate is infinite or not a number";
inline constexpr const char* NOTHING_LEFT = "not drawn: the gaps are longer than the arrow";
inline constexpr const char* OUT_OF_REACH = "not drawn: too far outside of the picture";
inline constexpr const char* OTHER_KIND = "not drawn: neither an arrow nor a text";
/// Behind the name of the colour.
inline constexpr const char* NO_COLOR = " is not a valid color name: drawn in black";
}
