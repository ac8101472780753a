#pragma once

#include <g3d_Color.h>
#include <gsl_Point.h>

#include <array>
#include <vector>

/// A mesh to draw. Triangles name their corners by index; one with an index outside or a corner that is not
/// finite is left out. Both sides of a triangle are shown; the colour's alpha is not looked at.
struct vwr_Part
{
    std::vector<gsl_Point> points;
    std::vector<std::array<int, 3>> triangles;
    g3d_Color color = g3d_Color(0.6f, 0.6f, 0.6f);
    /// Outlines and edges where the surface is open or bends sharply, hidden where something lies in front:
    /// dark on a shaded part, else in the part's colour.
    bool edges = false;
    /// Without it the triangles take the background's colour: with edges, a hidden-line drawing.
    bool shaded = true;
};
