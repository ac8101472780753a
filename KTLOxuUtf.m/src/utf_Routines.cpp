#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <utf_Routines.h>

namespace
{
constexpr int ORDER = 3;
constexpr int SCALAR_LAST = 0;
constexpr int SPATIAL = 6; // utf_quatrot_'s n for a quaternion of four components
constexpr const char* ERROR_1 = "SYSTEM ERROR 1 IN CALQUAT";
constexpr const char* ERROR_3 = "SYSTEM ERROR 3 IN CALQUAT";

/// (column 1 x column 2) . column 3
double Handedness(const double* c)
{
    const double n[] = {c[1] * c[5] - c[2] * c[4], c[2] * c[3] - c[0] * c[5], c[0] * c[4] - c[1] * c[3]};
    return n[0] * c[6] + n[1] * c[7] + n[2] * c[8];
}

void MakeRightHanded(double* c)
{
    if (Handedness(c) < 0.0)
    {
        for (int i = 3; i < 6; ++i)
        {
            c[i] = -c[i];
        }
    }
}

bool HasEngineeringShears(int elementType)
{
    const int e = elementType > 1000 ? elementType / 1000 : elementType;
    return (21 <= e && e <= 25) || (88 <= e && e <= 91);
}
}

extern "C" void utf_calquat_(double* q, const double* c, const int* order)
{
    const double c11 = c[0], c21 = c[1], c31 = c[2];
    const double c12 = c[3], c22 = c[4], c32 = c[5];
    const double c13 = c[6], c23 = c[7], c33 = c[8];
    const double trace = c11 + c22 + c33;
    const double m = std::max(std::max(c11, c22), c33);
    double x, y, z, w;
    if (trace >= m) // of the four the trace is the largest
    {
        if (trace <= -1.0)
        {
            std::puts(ERROR_1);
        }
        w = std::sqrt(trace + 1.0) / 2.0;
        const double d = 0.25 / w;
        x = (c32 - c23) * d;
        y = (c13 - c31) * d;
        z = (c21 - c12) * d;
    }
    else
    {
        const auto root = [trace](double ckk) {
            const double v = (1.0 - trace) / 4.0 + ckk / 2.0;
            if (v < 0.0)
            {
                std::puts(ERROR_3);
            }
            return std::sqrt(v);
        };
        if (c33 == m)
        {
            z = root(c33);
            const double d = 0.25 / z;
            w = (c21 - c12) * d;
            x = (c13 + c31) * d;
            y = (c23 + c32) * d;
        }
        else if (c22 == m)
        {
            y = root(c22);
            const double d = 0.25 / y;
            w = (c13 - c31) * d;
            x = (c12 + c21) * d;
            z = (c32 + c23) * d;
        }
        else
        {
            x = root(c11);
            const double d = 0.25 / x;
            w = (c32 - c23) * d;
            y = (c21 + c12) * d;
            z = (c31 + c13) * d;
        }
    }
    const int first = *order % 2 == 0 ? 0 : 1;
    q[first] = x;
    q[first + 1] = y;
    q[first + 2] = z;
    q[first == 0 ? 3 : 0] = w;
}

extern "C" void utf_getquat_(double* q, double* c)
{
    MakeRightHanded(c);
    utf_calquat_(q, c, &SCALAR_LAST);
}

extern "C" void utf_quatrot_(const double* s, const double* r, double* t, const int* n)
{
    const double s11 = s[0], s22 = s[1], s33 = s[2], s12 = s[3], s13 = s[4], s23 = s[5];
    const bool spatial = *n == SPATIAL;
    const double w = spatial ? r[0] : 0.0;
    const double x = spatial ? r[1] : 0.0;
    const double y = spatial ? r[2] : r[0];
    const double z = spatial ? r[3] : r[1];
    // The diagonal takes the quaternion to be a unit one; the entries of utf_Quat3dBase do not.
    const double a[] = {
        2.0 * (w * w + x * x - 0.5), 2.0 * (x * y - z * w),       2.0 * (x * z + y * w),
        2.0 * (x * y + z * w),       2.0 * (w * w + y * y - 0.5), 2.0 * (y * z - x * w),
        2.0 * (x * z - y * w),       2.0 * (y * z + x * w),       2.0 * (w * w + z * z - 0.5)};
    const double full[] = {s11, s12, s13, s12, s22, s23, s13, s23, s33};
    double product[ORDER * ORDER];
    double transposed[ORDER * ORDER];
    utf_aprd_(full, a, product, &ORDER, &ORDER, &ORDER);
    utf_atra_(a, transposed, &ORDER, &ORDER);
    utf_aprd_(transposed, product, t, &ORDER, &ORDER, &ORDER);
}

extern "C" void utf_calprinquat_(const double* tensor, double* out, const int* elementType,
                                 const int* tensorType, const int* ndi, const int* nshr)
{
    const bool packed = *tensorType == 7 || *tensorType == 8 || *tensorType == 9;
    const int mode = HasEngineeringShears(*elementType) ? 2 : 1;
    double directions[ORDER * ORDER];
    int direct = *ndi;
    if (*tensorType == 9 && *ndi == 1 && *nshr == 1)
    {
        const double padded[] = {tensor[0], 0.0, tensor[1]};
        direct = 2;
        utf_sprind_(padded, out, directions, &mode, &direct, nshr);
    }
    else
    {
        utf_sprind_(tensor, out, directions, &mode, ndi, nshr);
    }
    double frame[ORDER * ORDER];
    utf_atra_(directions, frame, &ORDER, &ORDER);
    if (direct > 1)
    {
        // The normal of a plane stays in the third place: no planar quaternion could tell it elsewhere.
        const int sorted = std::min(direct, packed ? 2 : ORDER);
        utf_asortd_(out, frame, &sorted);
    }
    MakeRightHanded(frame);
    double* const q = out + ORDER;
    utf_calquat_(q, frame, &SCALAR_LAST);
    if (packed)
    {
        q[0] = q[2];
        q[1] = q[3];
        q[2] = 0.0;
        q[3] = 0.0;
    }
}

extern "C" void utf_asortd_(double* values, double* directions, const int* n)
{
    for (int i = 1; i < *n; ++i)
    {
        for (int j = i; j > 0 && values[j - 1] < values[j]; --j)
        {
            double* const column = directions + static_cast<std::ptrdiff_t>(ORDER) * j;
            std::swap(values[j - 1], values[j]);
            std::swap_ranges(column - ORDER, column, column);
        }
    }
}

extern "C" void utf_atra_(const double* a, double* b, const int* m, const int* n)
{
    for (std::ptrdiff_t j = 0; j < *n; ++j)
    {
        for (std::ptrdiff_t i = 0; i < *m; ++i)
        {
            b[j + *n * i] = a[i + *m * j];
        }
    }
}

extern "C" void utf_aprd_(const double* a, const double* b, double* c, const int* l, const int* m,
                          const int* n)
{
    for (std::ptrdiff_t j = 0; j < *n; ++j)
    {
        for (std::ptrdiff_t i = 0; i < *l; ++i)
        {
            double sum = 0.0;
            for (std::ptrdiff_t k = 0; k < *m; ++k)
            {
                sum += a[i + *l * k] * b[k + *m * j];
            }
            c[i + *l * j] = sum;
        }
    }
}
