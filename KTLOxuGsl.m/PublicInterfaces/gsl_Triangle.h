#pragma once

#include <gsl_BBox.h>
#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <oxu_Export.h>

class gsl_Plane;

/// Triangle in model space: three corners, counted from 0, counter-clockwise about the normal.
///
/// Side i runs from corner i to the next one, side 2 back to corner 0. A triangle whose corners are collinear
/// has the zero normal: it contains no point, has no projected point, and its signed side distances are 0.
/// Corners and sides outside 0..2 raise nex_RangeException. L is gsl_Util's linear tolerance.
class OXU_EXPORT gsl_Triangle
{
public:
    /// All corners at the origin.
    gsl_Triangle() = default;
    gsl_Triangle(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) : corner_{p1, p2, p3} {}

    void SetPoints(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3);
    /// Turns the normal round by swapping the second and third corner; the first one stays.
    void Reverse();

    const gsl_Point& Point(int corner) const;
    /// Unit, or zero when degenerate: gsl_Vector(p1, p2, p3).
    gsl_Vector Normal() const { return {corner_[0], corner_[1], corner_[2]}; }
    double Area() const;
    gsl_BBox GetBBox() const;
    void GetExtent(double low[3], double high[3]) const noexcept;

    /// On the plane of the triangle within L, and ContainsProjectedPoint.
    bool Contains(const gsl_Point& p) const;
    /// The orthogonal foot of p lies inside all three sides, or within L of one of them.
    bool ContainsProjectedPoint(const gsl_Point& p) const;
    /// Signed distance in the triangle's plane from the line of that side to the foot of p, positive inside.
    double TestProjectedPointAgainstSide(const gsl_Point& p, int side) const;

    /// Every corner moved along dir, forth or back, onto the plane. false, and out unchanged, when dir is
    /// parallel to the plane.
    [[nodiscard]] bool Project(const gsl_Plane& plane, const gsl_Vector& dir, gsl_Triangle& out) const;
    /// The orthogonal foot of p on the plane of the triangle. false, and out unchanged, on a zero normal.
    [[nodiscard]] bool ProjectPoint(const gsl_Point& p, gsl_Point& out) const;
    /// The point of that side nearest to p; returns the distance to it.
    double ComputeClosestPointOnSide(const gsl_Point& p, int side, gsl_Point& out) const;

private:
    gsl_Point corner_[3];
};
