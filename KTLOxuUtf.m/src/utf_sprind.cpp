#include <algorithm>
#include <cmath>
#include <utf_Routines.h>

namespace
{
constexpr int ENGINEERING_SHEARS = 2;
/// Five are enough for all that was tried; the bound keeps the loop from depending on that.
constexpr int MOST_SWEEPS = 50;
constexpr double LARGE = 0x1p400;
constexpr double SMALL = 0x1p-400;
constexpr double SCALE = 0x1p600;
/// A square so small that its parts may have vanished in it.
constexpr double VANISHING = 0x1p-940;

/// A symmetric matrix on its way to the diagonal.
struct Jacobi
{
    double d[3] = {}; ///< the diagonal
    double o[3] = {}; ///< the entries beside it, each under the index that it does not have: 23, 13, 12
    double v[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}; ///< row k: the direction of d[k]

    /// Brings very large and very small entries, by a power of two and so without rounding, to where their
    /// squares neither overflow nor vanish, and makes everything not a number when an entry is not finite.
    /// Returns the factor that leads back.
    double Scale()
    {
        double largest = 0.0;
        double none = 0.0; // stays 0 unless an entry is infinite or not a number
        for (int i = 0; i < 3; ++i)
        {
            largest = std::max({largest, std::abs(d[i]), std::abs(o[i])});
            none += 0.0 * d[i] + 0.0 * o[i];
        }
        if (none != 0.0)
        {
            std::fill_n(&v[0][0], 9, none);
            std::fill_n(o, 3, 0.0);
            return none;
        }
        if (largest == 0.0 || (SMALL <= largest && largest <= LARGE))
        {
            return 1.0;
        }
        const double factor = largest > LARGE ? 1.0 / SCALE : SCALE;
        for (int i = 0; i < 3; ++i)
        {
            d[i] *= factor;
            o[i] *= factor;
        }
        return 1.0 / factor;
    }

    /// Turns the directions P and Q in their plane by the smaller of the angles that make the entry PQ
    /// vanish. false where there is nothing to do: the entry is 0, or adds nothing to either diagonal.
    template <int P, int Q>
    bool Rotate()
    {
        constexpr int R = 3 - P - Q;
        const double off = o[R];
        const double atP = std::abs(d[P]);
        const double atQ = std::abs(d[Q]);
        if (off == 0.0 || (atP + std::abs(off) == atP && atQ + std::abs(off) == atQ))
        {
            return false;
        }
        // tan(2 angle) = opposite / adjacent. From the hypotenuse come the tangent and the cosine of the
        // angle side by side, which is quicker than one through the other.
        double adjacent = d[Q] - d[P];
        double opposite = 2.0 * off;
        double square = adjacent * adjacent + opposite * opposite;
        if (square < VANISHING)
        {
            adjacent *= SCALE;
            opposite *= SCALE;
            square = adjacent * adjacent + opposite * opposite;
        }
        const double hypotenuse = std::sqrt(square);
        const double both = hypotenuse + std::abs(adjacent);
        const double tangent = std::copysign(1.0, adjacent) * opposite / both;
        const double cosine = std::sqrt(both / (2.0 * hypotenuse));
        const double sine = tangent * cosine;
        d[P] -= tangent * off;
        d[Q] += tangent * off;
        o[R] = 0.0;
        Turn(cosine, sine, o[Q], o[P]);
        for (int j = 0; j < 3; ++j)
        {
            Turn(cosine, sine, v[P][j], v[Q][j]);
        }
        return true;
    }
    static void Turn(double cosine, double sine, double& p, double& q)
    {
        const double turned = cosine * p - sine * q;
        q = sine * p + cosine * q;
        p = turned;
    }
};

/// The largest component, the first one of equals, made positive.
void MakePositive(double (&direction)[3])
{
    int largest = 0;
    for (int j = 1; j < 3; ++j)
    {
        largest = std::abs(direction[j]) > std::abs(direction[largest]) ? j : largest;
    }
    if (direction[largest] < 0.0)
    {
        for (double& component : direction)
        {
            component = -component;
        }
    }
}
}

extern "C" void utf_sprind_(const double* s, double* ps, double* an, const int* mode, const int* ndi,
                            const int* nshr)
{
    const int direct = std::clamp(*ndi, 0, 3);
    const int shears = std::clamp(*nshr, 0, 3);
    Jacobi matrix;
    for (int i = 0; i < direct; ++i)
    {
        matrix.d[i] = s[i];
    }
    for (int i = 0; i < shears; ++i)
    {
        const double shear = s[direct + i];
        matrix.o[2 - i] = *mode == ENGINEERING_SHEARS ? 0.5 * shear : shear;
    }
    const double back = matrix.Scale();
    bool turned = true;
    for (int sweep = 0; sweep < MOST_SWEEPS && turned; ++sweep)
    {
        turned = matrix.Rotate<0, 1>();
        turned = matrix.Rotate<0, 2>() || turned;
        turned = matrix.Rotate<1, 2>() || turned;
    }
    for (int k = 0; k < 3; ++k)
    {
        MakePositive(matrix.v[k]);
        ps[k] = back * matrix.d[k];
        for (int j = 0; j < 3; ++j)
        {
            an[k + 3 * j] = matrix.v[k][j];
        }
    }
}
