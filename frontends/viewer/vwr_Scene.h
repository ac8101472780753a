#pragma once

#include <g3d_Color.h>
#include <vwr_Part.h>
#include <vwr_View.h>

#include <functional>
#include <vector>

class annC_AnnotationContainer;

/// What a picture shows: a viewport in pixels (96 to the inch), the view, the parts, and over them the
/// annotations, which are looked at, not owned.
struct vwr_Scene
{
    int width = 800;
    int height = 600;
    vwr_View view;
    std::vector<vwr_Part> parts;
    const annC_AnnotationContainer* annotations = nullptr;
    g3d_Color background;
    /// Called over and over while parts are drawn: what it throws ends the drawing.
    std::function<void()> proceed;
    double freeAtRight = 0.0; ///< so many pixels of the width the parts leave free, for a legend
};
