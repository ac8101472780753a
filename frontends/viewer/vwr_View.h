#pragma once

#include <gsl_Vector.h>

/// From where a scene is looked at: the orientation of the eye, as a unit quaternion x, y, z, w that turns
/// the eye's axes (right, up, towards the eye) to model axes. The projection is parallel; how much of the
/// model is shown is fitted to the scene (vwr_Projection).
class vwr_View
{
public:
    /// Along -z with y up: right is x, up is y.
    vwr_View() = default;
    /// A quaternion of any length but zero is brought to length one; one that has none, or is not finite,
    /// gives the default view.
    vwr_View(double x, double y, double z, double w);
    /// From (1, 1, 1) towards the origin, z up.
    static vwr_View Isometric();
    /// Looking along `direction`, from the eye into the scene, with `up` upwards on the picture as far as the
    /// direction allows. A direction that is zero or not finite gives the default view; an up that is zero,
    /// not finite or parallel to the direction is replaced by the model axis that lies most across.
    static vwr_View Along(const gsl_Vector& direction, const gsl_Vector& up);

    double X() const { return x_; }
    double Y() const { return y_; }
    double Z() const { return z_; }
    double W() const { return w_; }
    /// The eye's axes in model space, each of length one.
    gsl_Vector Right() const { return Turned(1.0, 0.0, 0.0); }
    gsl_Vector Up() const { return Turned(0.0, 1.0, 0.0); }
    /// Against the direction in which one looks.
    gsl_Vector TowardsEye() const { return Turned(0.0, 0.0, 1.0); }

private:
    gsl_Vector Turned(double x, double y, double z) const;

    double x_ = 0.0;
    double y_ = 0.0;
    double z_ = 0.0;
    double w_ = 1.0;
};
