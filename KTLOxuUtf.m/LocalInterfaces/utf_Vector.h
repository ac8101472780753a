#pragma once

#include <oxu_Export.h>
#include <utf_Quaternion.h>

/// A vector result of three components, in space or in the plane; T is float or double.
///
/// A plain value. One made of two components is planar: its z is 0, and only rotations about z are fit for
/// it.
template <class T>
class OXU_EXPORT utf_Vector
{
public:
    utf_Vector(T x, T y, T z) : c_{x, y, z} {}
    /// In the plane.
    utf_Vector(T x, T y) : c_{x, y, 0}, isPlanar_(true) {}

    T X() const noexcept { return c_[0]; }
    T Y() const noexcept { return c_[1]; }
    T Z() const noexcept { return c_[2]; }
    bool IsPlanar() const noexcept { return isPlanar_; }

    /// This vector turned by q: from components along the axes of q to global ones. A planar vector stays in
    /// the plane and raises nex_PrimException "Not a valid 2D transform" unless the (3, 3) entry of q's
    /// direction cosines is above 0.99; of a planar q it always is.
    utf_Vector transform(utf_Quaternion<T> const& q) const;

private:
    T c_[3];
    bool isPlanar_ = false;
};

extern template class utf_Vector<double>;
extern template class utf_Vector<float>;
