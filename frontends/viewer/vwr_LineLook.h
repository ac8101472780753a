#pragma once

#include <annC_Enumerations.h>

#include <vector>

/// Widths and dashes of annotation lines, in pixels.
namespace vwr_LineLook
{
/// VERY_THIN 1, THIN 2, MEDIUM 3, THICK 5.
double Width(annC_LineThicknessEnm thickness);
/// Lengths of strokes and spaces in turn, which grow with the width; none for an unbroken line.
std::vector<double> Dashes(annC_LineStyleEnm style, double width);
}
