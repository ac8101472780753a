#include <algorithm>
#include <gsl_Matrix.h>
#include <nex_Raise.h>
#include <utf_Quat3dBase.h>
#include <utf_Routines.h>

namespace
{
/// Makes the length 1, however small or large it is; zero stays zero.
void Normalize(double* axis)
{
    const double largest = std::max({std::abs(axis[0]), std::abs(axis[1]), std::abs(axis[2])});
    if (largest == 0.0)
    {
        return;
    }
    // Two divisions: the reciprocal of a very small length is infinite.
    for (int i = 0; i < 3; ++i)
    {
        axis[i] /= largest;
    }
    const double length = std::sqrt(axis[0] * axis[0] + axis[1] * axis[1] + axis[2] * axis[2]);
    for (int i = 0; i < 3; ++i)
    {
        axis[i] /= length;
    }
}

/// From three axes, one behind the other.
template <class T>
void SetFromAxes(double (&axes)[9], T* components)
{
    Normalize(axes);
    Normalize(axes + 3);
    Normalize(axes + 6);
    double q[4];
    utf_getquat_(q, axes);
    std::transform(q, q + 4, components, [](double value) { return static_cast<T>(value); });
}
}

template <class T>
void utf_Quat3dBase<T>::set(const gsl_Matrix& transform) const requires(!std::is_const_v<T>)
{
    double axes[9];
    transform.NewXAxis().ToCoordinates(axes);
    transform.NewYAxis().ToCoordinates(axes + 3);
    transform.NewZAxis().ToCoordinates(axes + 6);
    SetFromAxes(axes, c_);
}

template <class T>
void utf_Quat3dBase<T>::set(const cow_2DArray<Value>& c) const requires(!std::is_const_v<T>)
{
    if (!(c.Rows() == 3 && c.Cols() == 3))
    {
        nex_RaisePrim("c.Rows() == 3 && c.Cols() == 3", "KTLOxuUtf.m/src/utf_Quat3dBase", __LINE__);
    }
    double axes[9];
    std::copy_n(c.Data(), 9, axes); // a row an axis
    SetFromAxes(axes, c_);
}

template class utf_Quat3dBase<double>;
template class utf_Quat3dBase<float>;
