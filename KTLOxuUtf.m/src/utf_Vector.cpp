#include <nex_Raise.h>
#include <utf_Vector.h>

namespace
{
constexpr double LEAST_R33 = 0.99;
}

template <class T>
utf_Vector<T> utf_Vector<T>::transform(utf_Quaternion<T> const& q) const
{
    T r[3][3];
    q.cosines(r);
    if (isPlanar_)
    {
        // Not a comparison turned round: an entry that is not a number is refused too.
        if (!(r[2][2] > LEAST_R33))
        {
            nex_RaisePrim("Not a valid 2D transform", "KTLOxuUtf.m/src/utf_Vector", __LINE__);
        }
        return {r[0][0] * c_[0] + r[1][0] * c_[1], r[0][1] * c_[0] + r[1][1] * c_[1]};
    }
    return {r[0][0] * c_[0] + r[1][0] * c_[1] + r[2][0] * c_[2],
            r[0][1] * c_[0] + r[1][1] * c_[1] + r[2][1] * c_[2],
            r[0][2] * c_[0] + r[1][2] * c_[1] + r[2][2] * c_[2]};
}

template class utf_Vector<double>;
template class utf_Vector<float>;
