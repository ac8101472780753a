#include <gsl_Matrix.h>
#include <nex_Raise.h>
#include <utf_Quat2dBase.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuUtf.m/src/utf_Quat2dBase";

/// An X axis of length 1: a longer one could pass for an axis along z. Zero stays zero.
gsl_Vector Unit(const gsl_Vector& x)
{
    const double length = std::hypot(std::hypot(x.X(), x.Y()), x.Z());
    return length == 0.0 ? x : gsl_Vector(x.X() / length, x.Y() / length, x.Z() / length);
}

/// From the turn about z of a rotation with these axes.
template <class T>
void SetFromAxes(const gsl_Vector& x, const gsl_Vector& y, T* components)
{
    gsl_Matrix rotation;
    rotation.SetRotationVectors(Unit(x), y, gsl_Vector(0.0, 0.0, 1.0));
    double aboutX = 0.0;
    double aboutY = 0.0;
    double aboutZ = 0.0;
    rotation.GetRotationAngles(aboutX, aboutY, aboutZ);
    components[0] = static_cast<T>(std::sin(0.5 * aboutZ));
    components[1] = static_cast<T>(std::cos(0.5 * aboutZ));
}
}

template <class T>
void utf_Quat2dBase<T>::set(const gsl_Matrix& transform) const requires(!std::is_const_v<T>)
{
    SetFromAxes(transform.NewXAxis(), transform.NewYAxis(), c_);
}

template <class T>
void utf_Quat2dBase<T>::set(const cow_2DArray<Value>& c) const requires(!std::is_const_v<T>)
{
    if (!(c.Rows() == 2 || c.Rows() == 3))
    {
        nex_RaisePrim("c.Rows()==2 || c.Rows()==3", SOURCE, __LINE__);
    }
    if (c.Rows() == 2 && c.Cols() != 2)
    {
        nex_RaisePrim("c.Cols() == 2", SOURCE, __LINE__);
    }
    if (c.Rows() == 3 && c.Cols() != 3)
    {
        nex_RaisePrim("c.Cols() == 3", SOURCE, __LINE__);
    }
    SetFromAxes(gsl_Vector(c(0, 0), c(0, 1), 0.0), gsl_Vector(c(1, 0), c(1, 1), 0.0), c_);
}

template class utf_Quat2dBase<double>;
template class utf_Quat2dBase<float>;
