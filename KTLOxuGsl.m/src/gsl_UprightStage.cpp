#include <algorithm>
#include <cmath>
#include <gsl_UprightStage.h>
#include <limits>

namespace
{
// How far rounding may have put a place off, in units in the last place of the largest coordinate that it
// came from.
constexpr double ROUNDINGS = 16.0 * std::numeric_limits<double>::epsilon();
// Below this sine two upright planes count as parallel.
constexpr double PARALLEL_PLANES = 1e-9;

// How far off rounding may have put differences between the pair's corners and an origin among them.
double RoundingOf(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& origin)
{
    double extent = 0.0;
    for (int i = 0; i < 3; ++i)
    {
        extent = std::max({extent, gsl_Largest3(a.corner[i] - origin), gsl_Largest3(b.corner[i] - origin)});
    }
    return ROUNDINGS * extent;
}

// A triangle upright along the direction, in its own plane: the place across and the height of each corner.
struct Upright
{
    const gsl_StageView& triangle;
    double across[3];
    double height[3];

    Upright(const gsl_StageView& t, const gsl_Triple& origin, const gsl_Triple& level, const gsl_Triple& up)
        : triangle(t)
    {
        for (int i = 0; i < 3; ++i)
        {
            across[i] = gsl_Dot3(t.corner[i] - origin, level);
            height[i] = gsl_Dot3(t.corner[i] - origin, up);
        }
    }

    // The heights over a corner of another triangle in the same plane.
    template <class Found>
    void HeightsAt(const Upright& other, int corner, double reach, Found found) const
    {
        Heights(other.across[corner], reach, found);
    }
    // Calls found(height, place) for every side that the upright line at that place meets, within reach:
    // once, or for both ends of a side that is upright itself.
    template <class Found>
    void Heights(double at, double reach, Found found) const
    {
        for (int side = 0; side < 3; ++side)
        {
            const int i = gsl_Facet::START[side];
            const int k = gsl_Facet::END[side];
            const double low = std::min(across[i], across[k]);
            const double high = std::max(across[i], across[k]);
            if (at < low - reach || at > high + reach)
            {
                continue;
            }
            if (high - low <= reach)
            {
                found(height[i], triangle.corner[i]);
                found(height[k], triangle.corner[k]);
                continue;
            }
            const double s = std::clamp((at - across[i]) / (across[k] - across[i]), 0.0, 1.0);
            found(height[i] * (1.0 - s) + height[k] * s,
                  gsl_Between3(triangle.corner[i], triangle.corner[k], s));
        }
    }
};

// Adds the contacts that the corners of each triangle to be tested have with the other one.
template <class Flat>
void AddCorners(const Flat& movable, const Flat& fixed, const gsl_PairTests& tests, double reach,
                gsl_TravelSpan& span)
{
    for (int i = 0; i < 3; ++i)
    {
        if (gsl_PairTests::Has(tests.movable, i))
        {
            fixed.HeightsAt(movable, i, reach, [&](double height, const gsl_Triple& place) {
                span.Add(height - movable.height[i], movable.triangle.corner[i], place);
            });
        }
    }
    for (int i = 0; i < 3; ++i)
    {
        if (gsl_PairTests::Has(tests.fixed, i))
        {
            movable.HeightsAt(fixed, i, reach, [&](double height, const gsl_Triple& place) {
                span.Add(fixed.height[i] - height, place, fixed.triangle.corner[i]);
            });
        }
    }
}

// The places of a triangle over one place across the direction, from its lowest to its highest.
struct Rise
{
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();
    gsl_Triple lowest;
    gsl_Triple highest;

    void Add(double height, const gsl_Triple& place)
    {
        if (height < low)
        {
            low = height;
            lowest = place;
        }
        if (height > high)
        {
            high = height;
            highest = place;
        }
    }
    bool IsEmpty() const { return low > high; }
};
}

// A triangle as seen along the direction: places across it and heights along it.
struct gsl_UprightStage::Seen
{
    const gsl_StageView& triangle;
    double x[3];
    double y[3];
    double height[3];

    Seen(const gsl_StageView& t, const gsl_Triple& origin, const gsl_ViewFrame& frame) : triangle(t)
    {
        for (int i = 0; i < 3; ++i)
        {
            const gsl_Triple p = t.corner[i] - origin;
            x[i] = gsl_Dot3(p, frame.across1);
            y[i] = gsl_Dot3(p, frame.across2);
            height[i] = gsl_Dot3(p, frame.along);
        }
    }

    // Twice the signed area of corners i, k and the place (px, py).
    double Area(int i, int k, double px, double py) const
    {
        const double a = (x[i] - px) * (y[k] - py);
        const double b = (y[i] - py) * (x[k] - px);
        // Seen as a needle, the shares of its corners rest on what is left of the two.
        return std::abs(a - b) < gsl_NEEDLE_SINE * std::abs(a)
                   ? gsl_ProductsApart(x[i] - px, y[k] - py, y[i] - py, x[k] - px)
                   : a - b;
    }

    // Calls found(height, place) for the triangle's place over a corner of another one, and for the place
    // nearest to it on every side that passes within reach: both ends of a side that is upright itself.
    template <class Found>
    void HeightsAt(const Seen& other, int corner, double reach, Found found) const
    {
        const double px = other.x[corner];
        const double py = other.y[corner];
        const double weight[3] = {Area(1, 2, px, py), Area(2, 0, px, py), Area(0, 1, px, py)};
        const double total = weight[0] + weight[1] + weight[2];
        const double size = std::max({std::abs(x[1] - x[0]), std::abs(y[1] - y[0]), std::abs(x[2] - x[0]),
                                      std::abs(y[2] - y[0]), std::abs(x[0] - px), std::abs(y[0] - py)});
        if (std::abs(total) > ROUNDINGS * size * size)
        {
            const double share[3] = {weight[0] / total, weight[1] / total, weight[2] / total};
            if (share[0] >= 0.0 && share[1] >= 0.0 && share[2] >= 0.0)
            {
                const gsl_Triple place = triangle.corner[0] * share[0] + triangle.corner[1] * share[1] +
                                         triangle.corner[2] * share[2];
                found(height[0] * share[0] + height[1] * share[1] + height[2] * share[2], place);
            }
        }
        for (int side = 0; side < 3; ++side)
        {
            const int i = gsl_Facet::START[side];
            const int k = gsl_Facet::END[side];
            const double dx = x[k] - x[i];
            const double dy = y[k] - y[i];
            const double squared = dx * dx + dy * dy;
            const double along = (px - x[i]) * dx + (py - y[i]) * dy;
            const double s = squared > 0.0 ? std::clamp(along / squared, 0.0, 1.0) : 0.0;
            const double offX = px - (x[i] + dx * s);
            const double offY = py - (y[i] + dy * s);
            if (offX * offX + offY * offY > reach * reach)
            {
                continue;
            }
            if (squared <= reach * reach)
            {
                found(height[i], triangle.corner[i]);
                found(height[k], triangle.corner[k]);
                continue;
            }
            found(height[i] * (1.0 - s) + height[k] * s,
                  gsl_Between3(triangle.corner[i], triangle.corner[k], s));
        }
    }
};

void gsl_UprightStage::Clip(const gsl_StageView& movable, const gsl_StageView& fixed,
                            const gsl_PairTests& tests, gsl_TravelSpan& span) const
{
    const gsl_Triple& origin = fixed.origin;
    const Seen seenMovable(movable, origin, frame_);
    const Seen seenFixed(fixed, origin, frame_);
    const double rounding = std::min(RoundingOf(movable, fixed, origin), tolerance_);
    ClipWithin(seenMovable, seenFixed, tests, rounding, span);
    if (span.IsEmpty())
    {
        ClipWithin(seenMovable, seenFixed, tests, tolerance_, span);
    }
}

void gsl_UprightStage::ClipWithin(const Seen& movable, const Seen& fixed, const gsl_PairTests& tests,
                                  double reach, gsl_TravelSpan& span) const
{
    AddCorners(movable, fixed, tests, reach, span);
    if (!tests.edges)
    {
        return;
    }
    for (int m = 0; m < 3; ++m)
    {
        const int m0 = gsl_Facet::START[m];
        const int m1 = gsl_Facet::END[m];
        for (int f = 0; f < 3; ++f)
        {
            const int f0 = gsl_Facet::START[f];
            const int f1 = gsl_Facet::END[f];
            const double start = fixed.Area(f0, f1, movable.x[m0], movable.y[m0]);
            const double end = fixed.Area(f0, f1, movable.x[m1], movable.y[m1]);
            const double startOfFixed = movable.Area(m0, m1, fixed.x[f0], fixed.y[f0]);
            const double endOfFixed = movable.Area(m0, m1, fixed.x[f1], fixed.y[f1]);
            // Edges on one line are not parted by either: their ends are corner candidates.
            if ((start > 0.0 && end > 0.0) || (start < 0.0 && end < 0.0) || start == end ||
                (startOfFixed > 0.0 && endOfFixed > 0.0) || (startOfFixed < 0.0 && endOfFixed < 0.0) ||
                startOfFixed == endOfFixed)
            {
                continue;
            }
            const double s = start / (start - end);
            const double r = startOfFixed / (startOfFixed - endOfFixed);
            const double height = movable.height[m0] * (1.0 - s) + movable.height[m1] * s;
            const double heightOfFixed = fixed.height[f0] * (1.0 - r) + fixed.height[f1] * r;
            span.Add(heightOfFixed - height,
                     gsl_Between3(movable.triangle.corner[m0], movable.triangle.corner[m1], s),
                     gsl_Between3(fixed.triangle.corner[f0], fixed.triangle.corner[f1], r));
        }
    }
}

void gsl_UprightStage::BothUpright(const gsl_StageView& movable, const gsl_StageView& fixed,
                                   const gsl_PairTests& tests, gsl_TravelSpan& span) const
{
    if (gsl_Length3(gsl_Cross3(movable.normal, fixed.normal)) < PARALLEL_PLANES)
    {
        InOnePlane(movable, fixed, tests, span);
    }
    else if (tests.edges)
    {
        InCrossingPlanes(movable, fixed, span);
    }
}

void gsl_UprightStage::InOnePlane(const gsl_StageView& movable, const gsl_StageView& fixed,
                                  const gsl_PairTests& tests, gsl_TravelSpan& span) const
{
    const gsl_Triple& origin = fixed.origin;
    if (std::abs(gsl_Dot3(movable.origin - origin, fixed.normal)) > tolerance_)
    {
        return;
    }
    const gsl_Triple level = gsl_Cross3(frame_.along, fixed.normal);
    const Upright ownMovable(movable, origin, level, frame_.along);
    const Upright ownFixed(fixed, origin, level, frame_.along);
    const double rounding = std::min(RoundingOf(movable, fixed, origin), tolerance_);
    for (const double reach : {rounding, tolerance_})
    {
        AddCorners(ownMovable, ownFixed, tests, reach, span);
        if (!span.IsEmpty())
        {
            return;
        }
    }
}

void gsl_UprightStage::InCrossingPlanes(const gsl_StageView& movable, const gsl_StageView& fixed,
                                        gsl_TravelSpan& span) const
{
    // Both planes hold the direction, so the line that they share runs along it. In each plane it stands at
    // one place across, which the other plane gives.
    const gsl_Triple& origin = fixed.origin;
    const gsl_Triple levelOfMovable = gsl_Cross3(frame_.along, movable.normal);
    const gsl_Triple levelOfFixed = gsl_Cross3(frame_.along, fixed.normal);
    const double sine = gsl_Dot3(movable.normal, levelOfFixed);
    const gsl_Triple way = movable.origin - origin;
    const double onFixed = gsl_Dot3(movable.normal, way) / sine;
    const double onMovable =
        -gsl_Dot3(fixed.normal, way) / gsl_Dot3(fixed.normal, levelOfMovable) + gsl_Dot3(way, levelOfMovable);
    const Upright ownMovable(movable, origin, levelOfMovable, frame_.along);
    const Upright ownFixed(fixed, origin, levelOfFixed, frame_.along);
    const double rounding = std::min(RoundingOf(movable, fixed, origin) / std::abs(sine), tolerance_);
    for (const double reach : {rounding, tolerance_})
    {
        Rise ofMovable;
        Rise ofFixed;
        ownMovable.Heights(onMovable, reach,
                           [&](double height, const gsl_Triple& place) { ofMovable.Add(height, place); });
        ownFixed.Heights(onFixed, reach,
                         [&](double height, const gsl_Triple& place) { ofFixed.Add(height, place); });
        if (!ofMovable.IsEmpty() && !ofFixed.IsEmpty())
        {
            span.Add(ofFixed.low - ofMovable.high, ofMovable.highest, ofFixed.lowest);
            span.Add(ofFixed.high - ofMovable.low, ofMovable.lowest, ofFixed.highest);
            return;
        }
    }
}
