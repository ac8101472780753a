#pragma once

#include <cmath>
#include <cow_2DArray.h>
#include <oxu_Export.h>
#include <res_DataTypeEnm.h>
#include <type_traits>

class gsl_Matrix;

/// The arithmetic of a rotation in space, by the angle a about the unit axis n, on four components that stand
/// elsewhere: (x, y, z) = n sin(a/2), w = cos(a/2), scalar last; identity (0, 0, 0, 1).
///
/// A view: it owns nothing and holds only the address. T is float or double, const for a view that reads
/// alone. The components are taken to be unit and are never normalised; q and -q are the same rotation.
/// A result may be written over the components or the argument. Formulas as in J. B. Kuipers, "Quaternions
/// and Rotation Sequences", 1999, chapters 5 and 7.
///
/// With R(q) the matrix that cosines() gives, a row a turned axis:
///  1. R(q * r) = R(r) R(q), and R(inverse q) = transposed R(q).
///  2. set(c) of R(q) gives q or -q; utf_calquat_ takes the axes as columns, so R(q) transposed.
template <class T>
class OXU_EXPORT utf_Quat3dBase
{
public:
    using Value = std::remove_const_t<T>;

    static constexpr int numComponents() { return 4; }
    static constexpr res_DataTypeEnm type() { return res_DataTypeEnm::QUATERNION_3D; }

    explicit utf_Quat3dBase(T* components) : c_(components) {}

    void setIdentity() const requires(!std::is_const_v<T>)
    {
        c_[0] = 0;
        c_[1] = 0;
        c_[2] = 0;
        c_[3] = 1;
    }
    /// From the new axes of a transform, of any length; a left-handed frame has its Y axis reversed. A zero
    /// axis stays zero, and the components are then not unit: (0, 0, 0, 0.5) when all three are.
    void set(const gsl_Matrix& transform) const requires(!std::is_const_v<T>);
    /// From direction cosines, 3x3, a row an axis, as cosines() gives them. nex_PrimException with
    /// "c.Rows() == 3 && c.Cols() == 3" for another shape.
    void set(const cow_2DArray<Value>& c) const requires(!std::is_const_v<T>);

    /// The conjugate.
    void inverse(Value* out) const
    {
        out[0] = -c_[0];
        out[1] = -c_[1];
        out[2] = -c_[2];
        out[3] = c_[3];
    }
    /// Hamilton's product of this with r.
    void mult(const Value* r, Value* out) const
    {
        const Value x = c_[0] * r[3] + c_[1] * r[2] - c_[2] * r[1] + c_[3] * r[0];
        const Value y = -c_[0] * r[2] + c_[1] * r[3] + c_[2] * r[0] + c_[3] * r[1];
        const Value z = c_[0] * r[1] - c_[1] * r[0] + c_[2] * r[3] + c_[3] * r[2];
        const Value w = -c_[0] * r[0] - c_[1] * r[1] - c_[2] * r[2] + c_[3] * r[3];
        out[0] = x;
        out[1] = y;
        out[2] = z;
        out[3] = w;
    }
    /// The rotation nearest to this one that differs from q by a turn about q's own axis 0, 1 or 2 (x, y, z):
    /// q times the twist of inverse(q) * this. Where that twist, before it is normalised, is shorter than
    /// tol or vanishes, every such rotation is as near, and q is taken. An axis above 2 leaves this rotation.
    /// (Swing and twist: P. Dobrowolski, "Swing-twist decomposition in Clifford algebra", 2015.)
    void projectOn(const Value* q, unsigned int axis, double tol, Value* out) const
    {
        Value result[4] = {c_[0], c_[1], c_[2], c_[3]};
        if (axis < 3)
        {
            Value between[4];
            utf_Quat3dBase<const Value>(q).inverse(between);
            utf_Quat3dBase<const Value>(between).mult(c_, between);
            const Value n = std::sqrt(between[axis] * between[axis] + between[3] * between[3]);
            Value twist[4] = {0, 0, 0, 1};
            if (!(n < tol || n == 0))
            {
                twist[axis] = between[axis] / n;
                twist[3] = between[3] / n;
            }
            utf_Quat3dBase<const Value>(q).mult(twist, result);
        }
        for (int i = 0; i < 4; ++i)
        {
            out[i] = result[i];
        }
    }

    /// Direction cosines: row i holds the components of the turned i-th axis.
    Value R11() const { return (x() * x() - y() * y()) + (w() * w() - z() * z()); }
    Value R12() const { return 2 * (x() * y() + z() * w()); }
    Value R13() const { return 2 * (x() * z() - y() * w()); }
    Value R21() const { return 2 * (x() * y() - z() * w()); }
    Value R22() const { return (w() * w() - z() * z()) - (x() * x() - y() * y()); }
    Value R23() const { return 2 * (y() * z() + x() * w()); }
    Value R31() const { return 2 * (x() * z() + y() * w()); }
    Value R32() const { return 2 * (y() * z() - x() * w()); }
    Value R33() const { return (z() * z() + w() * w()) - (x() * x() + y() * y()); }
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
    /// Axis times angle, radians, 0 to 2 pi; zero where 1 - w w vanishes (angles below about 2e-8 in double,
    /// 3e-4 in float) or w is above 1 by rounding.
    void toVector(Value* out) const
    {
        const Value t = 1 - w() * w();
        const Value factor = 2 * std::acos(w()) / std::sqrt(t);
        for (int i = 0; i < 3; ++i)
        {
            out[i] = t <= 0 ? Value(0) : c_[i] * factor;
        }
    }

private:
    Value x() const { return c_[0]; }
    Value y() const { return c_[1]; }
    Value z() const { return c_[2]; }
    Value w() const { return c_[3]; }

    T* c_;
};
