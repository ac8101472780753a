#pragma once

#include <annC_Enumerations.h>
#include <g3d_Color.h>
#include <vwr_Font.h>
#include <vwr_Spot.h>

#include <string>

/// A line of text on the picture.
struct vwr_TextRun
{
    std::string text; ///< clean UTF-8
    vwr_Font font;
    g3d_Color color;
    /// On the baseline: where the text begins, its middle, or where it ends, as `side` says.
    vwr_Spot at;
    annC_JustificationEnm side = annC_JustificationEnm::LEFT;
    /// Degrees, counter-clockwise, about `at`.
    double angle = 0.0;
};
