#pragma once

#include <gsl_Point.h>
#include <vwr_Spot.h>

#include <optional>

class annC_Anchor;
struct vwr_Scene;

/// Where the anchors of annotations and the points of the model lie on the picture of a scene.
///
/// A picture has 96 pixels to the inch; lengths of annotations are millimetres. The view is fitted to the
/// scene: the parts, as the view shows them, fill the picture up to a margin of MARGIN of its size at each
/// side, all but what the scene keeps free. Without parts the 3D anchors of the annotations are fitted
/// instead; when all lies in one point, that is the middle and a unit of the model is a millimetre.
class vwr_Viewport
{
public:
    static constexpr double PIXELS_PER_MM = 96.0 / 25.4;
    static constexpr double MARGIN = 0.08;
    /// Coordinates of the model beyond this are taken for infinite, so that no sum of them overflows.
    static constexpr double LARGEST_COORDINATE = 1e100;

    /// On the picture, and how near to the eye, in pixels too; greater is nearer.
    struct Seen
    {
        vwr_Spot spot;
        double nearness = 0.0;
    };

    explicit vwr_Viewport(const vwr_Scene& scene);

    static bool IsFinite(const gsl_Point& point);
    Seen Project(const gsl_Point& point) const;
    /// A named position lies on the border or in the middle, a viewport point at its per cent of width and
    /// height from the lower left corner, a 3D point where the view shows it. No anchor, or one of another
    /// kind, is the lower left corner. Not finite where the anchor is not.
    vwr_Spot Place(const annC_Anchor* anchor) const;
    /// The place so many millimetres to the right of and above the anchor.
    vwr_Spot Place(const annC_Anchor* anchor, double right, double up) const;
    /// Pixels to a unit of the model.
    double Scale() const { return scale_; }

private:
    struct Extent;
    struct Axis
    {
        double x, y, z;

        explicit Axis(const gsl_Vector& v) : x(v.X()), y(v.Y()), z(v.Z()) {}
        double operator()(const gsl_Point& p) const { return x * p.X() + y * p.Y() + z * p.Z(); }
    };

    void Fit(const vwr_Scene& scene);

    double width_;
    double height_;
    double fittedWidth_; ///< the parts lie left of it
    Axis right_;
    Axis up_;
    Axis eye_;
    double scale_ = PIXELS_PER_MM;
    // What lies in the middle of the picture, along the three axes.
    double middleRight_ = 0.0;
    double middleUp_ = 0.0;
    double middleEye_ = 0.0;
};
