#pragma once

#include <aio_ostream.h>
#include <cow_2DArray.h>
#include <cow_List.h>
#include <oxu_Export.h>
#include <utf_Quat2dBase.h>
#include <utf_Quat3dBase.h>

class cls_ReadVisitor;
class cls_WriteVisitor;
class gsl_Matrix;
class gsl_Vector;

/// A rotation in the plane, (s, c), or in space, (x, y, z, w) with the scalar last: the orientation of a
/// coordinate system or of principal directions. T is float or double.
///
/// A plain value, unit by construction: nothing normalises it, so components that are not unit give what the
/// formulas give. q and -q are the same rotation. Direction cosines hold the turned axes in their rows. The
/// kind is one of res_DataTypeEnm's two quaternions; another one raises nex_PrimException "Unknown quaternion
/// type", and two quaternions of different kinds are refused with "q.type() == QuaternionType()".
template <class T>
class OXU_EXPORT utf_Quaternion
{
public:
    /// 2 in the plane, 4 in space.
    static int numComponents(res_DataTypeEnm type);

    /// From numComponents(type) values in storage order.
    utf_Quaternion(res_DataTypeEnm type, T const* components);
    /// From direction cosines, a row an axis, so that utf_Quaternion(q.type(), q.cosines()) is q or -q: 3x3
    /// in space, 2x2 or 3x3 in the plane; nex_PrimException with the condition that fails for another shape.
    utf_Quaternion(res_DataTypeEnm type, cow_2DArray<T> const& cosines);
    /// From the new axes of a transform, whatever their lengths; its translation has no part in it. In the
    /// plane, the turn of its X and Y axes about z.
    utf_Quaternion(res_DataTypeEnm type, gsl_Matrix const& transform);
    /// In space, from three axes of any length.
    utf_Quaternion(gsl_Vector const& x, gsl_Vector const& y, gsl_Vector const& z);
    /// In the plane, from two axes of any length.
    utf_Quaternion(gsl_Vector const& x, gsl_Vector const& y);
    /// nex_PrimException "Unknown quaternion type" or "Wrong number of quaternion components" for data that
    /// is no quaternion.
    explicit utf_Quaternion(cls_ReadVisitor const& reader);

    /// A copy that the caller owns.
    utf_Quaternion* Copy() const { return new utf_Quaternion(*this); }

    res_DataTypeEnm type() const noexcept { return type_; }
    /// In storage order; the address of the object's own.
    T const* components() const noexcept { return c_; }

    /// The turn back: the conjugate.
    utf_Quaternion inverse() const
    {
        utf_Quaternion out(type_);
        View([&](auto view) { view.inverse(out.c_); });
        return out;
    }
    /// Hamilton's product of this with q: the turn q in the frame that this turn made.
    utf_Quaternion mult(utf_Quaternion const& q) const
    {
        RequireType(q);
        utf_Quaternion out(type_);
        View([&](auto view) { view.mult(q.c_, out.c_); });
        return out;
    }
    /// The rotation nearest to this one among those that differ from q by a turn about q's own axis 0, 1 or 2
    /// alone; q itself where this has no such part above tol. See utf_Quat3dBase and utf_Quat2dBase.
    utf_Quaternion projectOn(utf_Quaternion const& q, unsigned int axis, double tol) const
    {
        RequireType(q);
        utf_Quaternion out(type_);
        View([&](auto view) { view.projectOn(q.c_, axis, tol, out.c_); });
        return out;
    }

    /// Axis times angle in radians: 3 values, in the plane (0, 0, angle). Zero for angles so small that the
    /// scalar rounds to 1.
    cow_List<T> toVector() const;
    /// 3x3 direction cosines.
    cow_2DArray<T> cosines() const { return quatToCosine3D(); }
    void cosines(T (*rows)[3]) const
    {
        View([rows](auto view) { view.cosines(rows); });
    }
    /// The upper left 2x2 of the direction cosines: all of a rotation in the plane.
    cow_2DArray<T> quatToCosine2D() const { return Corner(2); }
    cow_2DArray<T> quatToCosine3D() const { return Corner(3); }

    /// Direction cosines one by one: row, column.
    T R11() const
    {
        return View([](auto view) { return view.R11(); });
    }
    T R12() const
    {
        return View([](auto view) { return view.R12(); });
    }
    T R13() const
    {
        return View([](auto view) { return view.R13(); });
    }
    T R21() const
    {
        return View([](auto view) { return view.R21(); });
    }
    T R22() const
    {
        return View([](auto view) { return view.R22(); });
    }
    T R23() const
    {
        return View([](auto view) { return view.R23(); });
    }
    T R31() const
    {
        return View([](auto view) { return view.R31(); });
    }
    T R32() const
    {
        return View([](auto view) { return view.R32(); });
    }
    T R33() const
    {
        return View([](auto view) { return view.R33(); });
    }
    /// The same of the planar rotation that the last two components make: (s, c), or (z, w) of a rotation in
    /// space.
    T R11_2d() const { return Plane().R11(); }
    T R12_2d() const { return Plane().R12(); }
    T R13_2d() const { return Plane().R13(); }
    T R21_2d() const { return Plane().R21(); }
    T R22_2d() const { return Plane().R22(); }
    T R23_2d() const { return Plane().R23(); }
    T R31_2d() const { return Plane().R31(); }
    T R32_2d() const { return Plane().R32(); }
    T R33_2d() const { return Plane().R33(); }

    /// "Qauternion:" (spelled so, on purpose), "As Vector:" and "As transformation matrix:", each followed by
    /// its values, a row a line, blanks between; every line is indented by that many blanks.
    void Print(aio_ostream& stream, int indent) const;

    /// Writes the kind's code and the components. The class has no type id in this library: who stores
    /// quaternions announces them under one of its own, with utf_QuaternionDoubleAdapter or
    /// utf_QuaternionFloatAdapter.
    void DBWrite(cls_WriteVisitor const& writer) const;

private:
    explicit utf_Quaternion(res_DataTypeEnm type) : type_(type) {}

    template <class F>
    auto View(F use) const
    {
        if (type_ == res_DataTypeEnm::QUATERNION_3D)
        {
            return use(utf_Quat3dBase<const T>(c_));
        }
        return use(utf_Quat2dBase<const T>(c_));
    }
    utf_Quat2dBase<const T> Plane() const
    {
        return utf_Quat2dBase<const T>(type_ == res_DataTypeEnm::QUATERNION_3D ? c_ + 2 : c_);
    }
    void RequireType(utf_Quaternion const& q) const
    {
        if (q.type_ != type_)
        {
            RaiseOtherType();
        }
    }
    [[noreturn]] static void RaiseOtherType();
    template <class Source>
    void Set(Source const& source);
    cow_2DArray<T> Corner(int order) const;

    res_DataTypeEnm type_; ///< one of the two kinds
    T c_[4] = {};          ///< in the plane the last two are 0
};

extern template class utf_Quaternion<double>;
extern template class utf_Quaternion<float>;
