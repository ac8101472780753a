#pragma once

class vwr_Canvas;
class vwr_TextMeasure;
struct vwr_Scene;

/// Draws a scene: the background, the parts, then the annotations from the rearmost to the front.
void vwr_DrawScene(vwr_Canvas& canvas, const vwr_Scene& scene, vwr_TextMeasure& measure);
