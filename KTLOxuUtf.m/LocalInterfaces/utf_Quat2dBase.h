#pragma once

#include <cmath>
#include <cow_2DArray.h>
#include <oxu_Export.h>
#include <res_DataTypeEnm.h>
#include <type_traits>

class gsl_Matrix;

/// The arithmetic of a rotation in the plane, by the angle a about z, on two components that stand elsewhere:
/// (s, c) = (sin(a/2), cos(a/2)), identity (0, 1).
///
/// A view: it owns nothing and holds only the address. T is float or double, const for a view that reads
/// alone. It is the spatial rotation (0, 0, s, c); the components are taken to be unit and are never
/// normalised. A result may be written over the components or the argument.
template <class T>
class OXU_EXPORT utf_Quat2dBase
{
public:
    using Value = std::remove_const_t<T>;

    static constexpr int numComponents() { return 2; }
    static constexpr res_DataTypeEnm type() { return res_DataTypeEnm::QUATERNION_2D; }

    explicit utf_Quat2dBase(T* components) : c_(components) {}

    void setIdentity() const requires(!std::is_const_v<T>)
    {
        c_[0] = 0;
        c_[1] = 1;
    }
    /// The turn of the new X and Y axes, of any length, about z; the Z axis is taken to be (0, 0, 1). An X
    /// axis along z leaves the turn to Y.
    void set(const gsl_Matrix& transform) const requires(!std::is_const_v<T>);
    /// From direction cosines, 2x2 or 3x3, a row an axis, as cosines() gives them. nex_PrimException with
    /// "c.Rows()==2 || c.Rows()==3", "c.Cols() == 2" (of two rows) or "c.Cols() == 3" (of three) for another
    /// shape.
    void set(const cow_2DArray<Value>& c) const requires(!std::is_const_v<T>);

    void inverse(Value* out) const
    {
        out[0] = -c_[0];
        out[1] = c_[1];
    }
    /// The turn by both angles.
    void mult(const Value* r, Value* out) const
    {
        const Value s = c_[0] * r[1] + c_[1] * r[0];
        const Value c = -c_[0] * r[0] + c_[1] * r[1];
        out[0] = s;
        out[1] = c;
    }
    /// Of this rotation and q the one that turns about the axis: this one about axis 2 (z) and about axes
    /// that are none (above 2), q about the others. The tolerance has no part in it.
    void projectOn(const Value* q, unsigned int axis, double, Value* out) const
    {
        const bool turns = axis >= 2;
        const Value s = turns ? c_[0] : q[0];
        const Value c = turns ? c_[1] : q[1];
        out[0] = s;
        out[1] = c;
    }

    /// Direction cosines: row i holds the components of the turned i-th axis.
    Value R11() const { return 1 - 2 * c_[0] * c_[0]; }
    Value R12() const { return 2 * c_[0] * c_[1]; }
    Value R13() const { return 0; }
    Value R21() const { return 0 - R12(); } // no negative zero
    Value R22() const { return R11(); }
    Value R23() const { return 0; }
    Value R31() const { return 0; }
    Value R32() const { return 0; }
    Value R33() const { return 1; }
    /// All nine entries, row by row.
    void cosines(Value (*rows)[3]) const
    {
        const Value entries[3][3] = {{R11(), R12(), R13()}, {R21(), R22(), R23()}, {R31(), R32(), R33()}};
        for (int i = 0; i < 3; ++i)
        {
            for (int j = 0; j < 3; ++j)
            {
                rows[i][j] = entries[i][j];
            }
        }
    }
    /// (0, 0, angle), as utf_Quat3dBase has it.
    void toVector(Value* out) const
    {
        const Value t = 1 - c_[1] * c_[1];
        const Value angle = t <= 0 ? Value(0) : c_[0] * (2 * std::acos(c_[1]) / std::sqrt(t));
        out[0] = 0;
        out[1] = 0;
        out[2] = angle;
    }

private:
    T* c_;
};
