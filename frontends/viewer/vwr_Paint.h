#pragma once

#include <g3d_Color.h>

#include <optional>
#include <vector>

/// How a shape is painted: filled, stroked, or both, the stroke on top. Lengths in pixels.
struct vwr_Paint
{
    std::optional<g3d_Color> fill = {};
    std::optional<g3d_Color> stroke = {};
    double width = 1.0;
    /// Lengths of strokes and spaces in turn; empty for an unbroken line.
    std::vector<double> dashes = {};
};
