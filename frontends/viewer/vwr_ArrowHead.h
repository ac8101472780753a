#pragma once

#include <annC_Enumerations.h>
#include <g3d_Color.h>
#include <vwr_Spot.h>

class vwr_Canvas;

/// The head at an end of an arrow. The tip of the two arrow styles is the end; circles, diamonds and squares
/// lie with their middle on it, a corner or a side towards the line. Its size is 9 pixels and three times the
/// line's width: the length of the two arrow styles; 0.7 of it is the diameter of a circle and the side of a
/// square, 1.1 and 0.72 are the length and the breadth of a diamond. Hollow heads show what lies behind.
class vwr_ArrowHead
{
public:
    /// `width` is the line's, in pixels.
    vwr_ArrowHead(annC_ArrowHeadStyleEnm style, double width);

    double Size() const { return size_; }
    /// How far before the end the line has to stop, so that it neither shows in a hollow head nor passes a
    /// pointed one.
    double Setback() const;
    /// `outwards` has length one and points from the line to the end.
    void Draw(vwr_Canvas& canvas, vwr_Spot end, vwr_Spot outwards, const g3d_Color& color) const;

private:
    double HalfDiameter() const { return 0.35 * size_; }
    double TipBehindMitre() const;
    double Shrunk(double inset) const;

    annC_ArrowHeadStyleEnm style_;
    double width_;
    double outline_; ///< width of a hollow head's stroke
    double size_;
};
