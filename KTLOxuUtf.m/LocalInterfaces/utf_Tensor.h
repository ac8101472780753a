#pragma once

#include <oxu_Export.h>
#include <utf_Quaternion.h>

/// A symmetric tensor result: 11, 22, 33, 12, 13, 23, shears as tensor components (not engineering strains).
/// T is float or double; the arithmetic is double's.
template <class T>
class OXU_EXPORT utf_Tensor
{
public:
    /// From six components in storage order.
    explicit utf_Tensor(T const* components);

    /// In storage order; the address of the object's own.
    T const* components() const noexcept { return c_; }

    /// The same tensor by its components along the global axes, this one's being along the axes of q:
    /// utf_quatrot_.
    utf_Tensor transform(utf_Quaternion<T> const& q) const;
    /// The principal values, falling, and the axes along which they lie, a rotation in space: diag(values)
    /// transformed by it is this tensor. utf_calprinquat_.
    utf_Quaternion<T> principal(T values[3]) const;

private:
    T c_[6];
};

extern template class utf_Tensor<double>;
extern template class utf_Tensor<float>;
