#pragma once

#include <omu_PrimEnum.h>
#include <oxu_Export.h>

// The properties of annotations that scripts and mementos see by name. Objects hold the value: never
// renumber, never rename.

/// Where on the viewport an anchor lies.
enum class annC_RelativePositionEnm {
    BOTTOM_LEFT = 0,
    BOTTOM_CENTER = 1,
    BOTTOM_RIGHT = 2,
    CENTER_LEFT = 3,
    CENTER = 4,
    CENTER_RIGHT = 5,
    TOP_LEFT = 6,
    TOP_CENTER = 7,
    TOP_RIGHT = 8
};

/// What an end of an arrow is drawn as.
enum class annC_ArrowHeadStyleEnm {
    ARROW = 0,
    FILLED_ARROW = 1,
    HOLLOW_CIRCLE = 2,
    FILLED_CIRCLE = 3,
    HOLLOW_DIAMOND = 4,
    FILLED_DIAMOND = 5,
    HOLLOW_SQUARE = 6,
    FILLED_SQUARE = 7,
    NONE = 8
};

/// How wide the line of an arrow is.
enum class annC_LineThicknessEnm { VERY_THIN = 0, THIN = 1, MEDIUM = 2, THICK = 3 };

/// The table offers DASHED before DOTTED, which has the lower value.
enum class annC_LineStyleEnm { SOLID = 0, DOTTED = 1, DASHED = 2, DOT_DASH = 3, NONE = 4 };

/// What a text's box is filled with: nothing, the viewport's background, a colour of its own.
enum class annC_BackgroundStyleEnm { TRANSPARENT = 0, MATCH = 1, OTHER = 2 };

/// How the lines of a text stand to each other.
enum class annC_JustificationEnm { LEFT = 0, CENTER = 1, RIGHT = 2 };

template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<annC_RelativePositionEnm, 1>::table[];
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<annC_ArrowHeadStyleEnm, 1>::table[];
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<annC_LineThicknessEnm, 1>::table[];
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<annC_LineStyleEnm, 1>::table[];
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<annC_BackgroundStyleEnm, 1>::table[];
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<annC_JustificationEnm, 1>::table[];
