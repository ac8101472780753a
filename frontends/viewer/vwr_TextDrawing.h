#pragma once

#include <g3d_Color.h>

class annC_Text;
class vwr_Canvas;
class vwr_TextMeasure;
class vwr_Viewport;

/// Draws the shapes of a text. The block's reference point (vwr_Block) lies on the anchor and the offset; the
/// block is turned about it. `background` is the viewport's, which the style MATCH takes. A box has a line of
/// one pixel in the text's colour.
void vwr_DrawText(vwr_Canvas& canvas, const vwr_Viewport& viewport, const annC_Text& text,
                  vwr_TextMeasure& measure, const g3d_Color& background);
