#include <algorithm>
#include <utf_Routines.h>
#include <utf_Tensor.h>

namespace
{
constexpr int COMPONENTS = 6;
}

template <class T>
utf_Tensor<T>::utf_Tensor(T const* components)
{
    std::copy_n(components, COMPONENTS, c_);
}

template <class T>
utf_Tensor<T> utf_Tensor<T>::transform(utf_Quaternion<T> const& q) const
{
    const bool spatial = q.type() == res_DataTypeEnm::QUATERNION_3D;
    T const* const c = q.components();
    // utf_quatrot_ reads the scalar first.
    const double r[4] = {spatial ? c[3] : c[1], spatial ? c[0] : T(0), spatial ? c[1] : T(0),
                         spatial ? c[2] : c[0]};
    double s[COMPONENTS];
    std::copy_n(c_, COMPONENTS, s);
    double full[9];
    const int n = COMPONENTS;
    utf_quatrot_(s, r, full, &n);
    const T turned[] = {static_cast<T>(full[0]), static_cast<T>(full[4]), static_cast<T>(full[8]),
                        static_cast<T>(full[3]), static_cast<T>(full[6]), static_cast<T>(full[7])};
    return utf_Tensor(turned);
}

template <class T>
utf_Quaternion<T> utf_Tensor<T>::principal(T values[3]) const
{
    double s[COMPONENTS];
    std::copy_n(c_, COMPONENTS, s);
    double out[7];
    const int plain = 0; // neither engineering shears nor packed to the plane
    const int three = 3;
    utf_calprinquat_(s, out, &plain, &plain, &three, &three);
    T q[4];
    std::transform(out, out + 3, values, [](double value) { return static_cast<T>(value); });
    std::transform(out + 3, out + 7, q, [](double value) { return static_cast<T>(value); });
    return utf_Quaternion<T>(res_DataTypeEnm::QUATERNION_3D, q);
}

template class utf_Tensor<double>;
template class utf_Tensor<float>;
