#pragma once

#include <algorithm>
#include <cmath>

/// Largest distance of three principal values from those of the symmetric tensor s (11, 22, 33, 12, 13, 23),
/// in halves of a unit in the last place of the largest: 1 is the best that a double can promise.
///
/// The distance of a value from a root of the characteristic polynomial is Newton's step from it, in long
/// double and of the tensor less its mean, so that close values do not matter as long as they are farther
/// apart than their errors.
inline double PrincipalError(const double* s, const double* values)
{
    using Long = long double;
    const Long mean = (Long(s[0]) + s[1] + s[2]) / 3;
    const Long a = s[0] - mean, b = s[1] - mean, c = s[2] - mean, d = s[3], e = s[4], f = s[5];
    const Long p = a * b + a * c + b * c - d * d - e * e - f * f;
    const Long q = a * (b * c - f * f) - d * (d * c - f * e) + e * (d * f - b * e);
    Long error = 0;
    Long largest = 0;
    for (int k = 0; k < 3; ++k)
    {
        const Long x = values[k] - mean;
        error = std::max(error, std::abs((x * x * x + p * x - q) / (3 * x * x + p)));
        largest = std::max(largest, std::abs(Long(values[k])));
    }
    return double(error / largest / 0x1p-53L);
}
