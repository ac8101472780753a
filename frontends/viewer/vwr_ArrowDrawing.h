#pragma once

class annC_Arrow;
class vwr_Canvas;
class vwr_Viewport;

/// Draws the shapes of an arrow. Each end lies its gap before its point; what the gaps leave nothing of is
/// not drawn. An arrow without length points to the right. Heads are drawn unbroken in the line's width, and
/// also where the line style is NONE.
void vwr_DrawArrow(vwr_Canvas& canvas, const vwr_Viewport& viewport, const annC_Arrow& arrow);
