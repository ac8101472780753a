#include <algorithm>
#include <gsl_Sheet.h>
#include <gsl_UprightStage.h>

namespace
{
// Leaning planes are of use up to this steepness.
constexpr double STEEPEST = 10.0;
// How far above what the pair stage takes for nearly upright a triangle is kept out, squared.
constexpr double STEEP = 16.0 * gsl_UprightStage::NEARLY_UPRIGHT * gsl_UprightStage::NEARLY_UPRIGHT;
// Below this squared sine of two sides a plain cross product does not tell how a triangle leans.
constexpr double NEEDLE = 1e-10;

struct Along
{
    double low;
    double high;
};

// A vector against all places of a region, at the least and at the most.
Along Reach(const gsl_Triple& way, const gsl_Extent& region)
{
    const double w[3] = {way.x, way.y, way.z};
    Along reach{0.0, 0.0};
    for (int axis = 0; axis < 3; ++axis)
    {
        const double a = w[axis] * region.low[axis];
        const double b = w[axis] * region.high[axis];
        reach.low += std::min(a, b);
        reach.high += std::max(a, b);
    }
    return reach;
}
}

void gsl_Sheet::AddSlope(const gsl_Triple corners[3], const gsl_Triple& along) noexcept
{
    const gsl_Triple a = corners[1] - corners[0];
    const gsl_Triple b = corners[2] - corners[1];
    const gsl_Triple n = gsl_Cross3(a, b);
    const double lean = gsl_Dot3(n, along);
    const double squared = gsl_Dot3(n, n);
    // A contact with a triangle nearly upright is known less well than the margin allows for.
    isSteep_ =
        isSteep_ || lean * lean < STEEP * squared || squared < NEEDLE * gsl_Dot3(a, a) * gsl_Dot3(b, b);
    rise = lean < 0.0 ? rise - n : rise + n;
}

void gsl_Sheet::Lean(const gsl_Triple& along) noexcept
{
    const double lean = gsl_Dot3(rise, along);
    const double length = gsl_Length3(rise);
    if (!isSteep_ && STEEPEST * lean > length)
    {
        steepness = length / lean;
        rise = rise * (1.0 / lean);
    }
}

void gsl_Sheet::AddPlaces(const gsl_Triple corners[3], const gsl_Triple& along) noexcept
{
    for (int i = 0; i < 3; ++i)
    {
        const double height = gsl_Dot3(corners[i], along);
        low = std::min(low, height);
        high = std::max(high, height);
        const double place = gsl_Dot3(corners[i], rise);
        least = std::min(least, place);
        most = std::max(most, place);
    }
}

void gsl_Sheet::AddHeights(const gsl_Triple corners[3], const gsl_Triple& along) noexcept
{
    for (int i = 0; i < 3; ++i)
    {
        const double height = gsl_Dot3(corners[i], along);
        low = std::min(low, height);
        high = std::max(high, height);
    }
}

bool gsl_Sheet::CanMeet(const gsl_Sheet& movable, const gsl_Extent& movableBox, const gsl_Sheet& fixed,
                        const gsl_Extent& fixedBox, const Sweep& sweep) noexcept
{
    // Contact at travel t of the places p and q = p + t along: t is the fixed rise times (q - p), and on p
    // the fixed rise differs from the movable one by no more than it does anywhere on what of the movable box
    // can reach the fixed one.
    const double u[3] = {sweep.along.x, sweep.along.y, sweep.along.z};
    const double from = sweep.soonest - sweep.slack;
    gsl_Extent region;
    for (int axis = 0; axis < 3; ++axis)
    {
        const double start = u[axis] * from;
        const double end = u[axis] * sweep.limit;
        region.low[axis] =
            std::max(movableBox.low[axis], fixedBox.low[axis] - std::max(start, end) - sweep.slack);
        region.high[axis] =
            std::min(movableBox.high[axis], fixedBox.high[axis] - std::min(start, end) + sweep.slack);
    }
    const Along off = Reach(fixed.rise - movable.rise, region);
    const double margin = sweep.margin * (1.0 + movable.steepness + fixed.steepness);
    return fixed.least - movable.most - off.high - margin <= sweep.limit &&
           fixed.most - movable.least - off.low + margin >= 0.0;
}
