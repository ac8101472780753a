#include <algorithm>
#include <cmath>
#include <gsl_PairStage.h>
#include <limits>
#include <optional>
#include <utility>

namespace
{
constexpr double EPSILON = std::numeric_limits<double>::epsilon();
// Roundings that the coordinates across the direction may have gathered, in units in the last place.
constexpr double ROUNDINGS = 8.0;

// Below this |normal . direction| a plane has no projection along the direction.
constexpr double NO_PROJECTION = 1e-10;
// Below this |normal . direction| the plane of the projected triangle holds the direction: nothing can be
// carried back onto it.
constexpr double HOLDS_DIRECTION = 1e-9;
// Below this sine of two sides a projected triangle is a segment.
constexpr double LEAST_SINE = 1e-10;
// Below this sine two edges count as parallel; the ends of parallel edges that overlap are corner candidates.
constexpr double PARALLEL_EDGES = 1e-10;

// How much lower than the planes say a contact accepted within the tolerance can be: the places of one
// contact lie up to three tolerances apart across the direction, and up to two beside their triangles, where
// the planes go on.
constexpr double TOLERANCES_OFF = 4.0;
constexpr double TOLERANCES_BESIDE = 2.0;

bool LessByPlace(const gsl_Triple& a, const gsl_Triple& b)
{
    if (a.x != b.x)
    {
        return a.x < b.x;
    }
    return a.y != b.y ? a.y < b.y : a.z < b.z;
}

double Largest(const gsl_Triple& p)
{
    return std::max({std::abs(p.x), std::abs(p.y), std::abs(p.z)});
}

struct Range
{
    double low;
    double high;
};

// The range of a triangle against the direction, measured from origin.
Range RangeFrom(const gsl_StageTriangle& triangle, const gsl_Triple& origin, const gsl_Triple& against)
{
    const double a = gsl_Dot3(triangle.corner[0] - origin, against);
    const double b = gsl_Dot3(triangle.corner[1] - origin, against);
    const double c = gsl_Dot3(triangle.corner[2] - origin, against);
    return {std::min({a, b, c}), std::max({a, b, c})};
}
}

gsl_PairStage::gsl_PairStage(const gsl_Triple& direction, double tolerance)
    : frame_(direction), tolerance_(tolerance), sweep_(direction), upright_(frame_, tolerance)
{}

gsl_StageTriangle gsl_PairStage::Prepare(const gsl_Triple corners[3], const gsl_Triple& normal) const
{
    gsl_StageTriangle triangle;
    triangle.corner = corners;
    triangle.normal = normal;
    triangle.cosine = gsl_Dot3(normal, frame_.along);
    const double a = gsl_Dot3(corners[0], frame_.along);
    const double b = gsl_Dot3(corners[1], frame_.along);
    const double c = gsl_Dot3(corners[2], frame_.along);
    triangle.low = std::min({a, b, c});
    triangle.high = std::max({a, b, c});
    triangle.rounding =
        ROUNDINGS * EPSILON * std::max({Largest(corners[0]), Largest(corners[1]), Largest(corners[2])});
    return triangle;
}

gsl_StageView gsl_PairStage::View(const gsl_StageTriangle& triangle) const
{
    gsl_StageView view;
    int order[3] = {0, 1, 2};
    const auto sort = [&](int i, int j) {
        if (LessByPlace(triangle.corner[order[j]], triangle.corner[order[i]]))
        {
            std::swap(order[i], order[j]);
        }
    };
    sort(0, 1);
    sort(1, 2);
    sort(0, 1);
    view.origin = triangle.corner[0];
    view.normal = triangle.normal;
    view.cosine = triangle.cosine;
    view.rounding = triangle.rounding;
    gsl_Triple relative[3];
    for (int i = 0; i < 3; ++i)
    {
        const gsl_Triple& corner = triangle.corner[order[i]];
        view.corner[i] = corner;
        view.across[i][0] = gsl_Dot3(corner, frame_.across1);
        view.across[i][1] = gsl_Dot3(corner, frame_.across2);
        relative[i] = corner - view.origin;
    }
    const auto& [p, q, r] = view.across;
    if ((q[0] - p[0]) * (r[1] - p[1]) < (q[1] - p[1]) * (r[0] - p[0]))
    {
        std::swap(view.across[1], view.across[2]);
    }
    view.facet = gsl_Facet(relative, view.normal);
    return view;
}

const gsl_StageView& gsl_PairStage::ViewOf(const gsl_StageTriangle& triangle,
                                           gsl_BlockStore<gsl_StageView>& store) const
{
    if (triangle.view == nullptr)
    {
        gsl_StageView& view = store.Take();
        view = View(triangle);
        triangle.view = &view;
    }
    return *triangle.view;
}

bool gsl_PairStage::Travel(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed, double boxes,
                           double limit, gsl_BlockStore<gsl_StageView>& store, double& travel) const
{
    // The two ranges against the direction, from one origin, decide; where it is not close, the heights do as
    // well.
    const double rounding = 2.0 * (movable.rounding + fixed.rounding);
    const double clearance = fixed.high - movable.low;
    if (clearance < -rounding || (clearance <= rounding && IsBehind(movable, fixed)))
    {
        return false;
    }
    double least = std::max(boxes, fixed.low - movable.high - tolerance_ - rounding);
    if (least > limit || !LeastByPlanes(movable, fixed, least) || least > limit)
    {
        return false;
    }
    const gsl_StageView& viewOfMovable = ViewOf(movable, store);
    const gsl_StageView& viewOfFixed = ViewOf(fixed, store);
    double contact = 0.0;
    if (SeenApart(viewOfMovable, viewOfFixed) || !Span(viewOfMovable, viewOfFixed).Ahead(tolerance_, contact))
    {
        return false;
    }
    // Only rounding can have put the contact below what the boxes, planes and ranges allow.
    travel = std::max(contact, least);
    if (travel < fixed.low - movable.high - tolerance_ + rounding)
    {
        travel = std::max(travel, Gap(movable, fixed) - tolerance_);
    }
    return true;
}

bool gsl_PairStage::IsBehind(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed) const
{
    const gsl_Triple against = -frame_.along;
    return RangeFrom(movable, fixed.corner[0], against).high < RangeFrom(fixed, fixed.corner[0], against).low;
}

double gsl_PairStage::Gap(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed) const
{
    const gsl_Triple against = -frame_.along;
    return RangeFrom(movable, fixed.corner[0], against).low - RangeFrom(fixed, fixed.corner[0], against).high;
}

gsl_TravelSpan gsl_PairStage::Span(const gsl_StageView& movable, const gsl_StageView& fixed,
                                   Corners corners) const
{
    gsl_TravelSpan span;
    const double leanOfMovable = std::abs(movable.cosine);
    const double leanOfFixed = std::abs(fixed.cosine);
    const bool uprightMovable = leanOfMovable < gsl_UprightStage::UPRIGHT;
    const bool uprightFixed = leanOfFixed < gsl_UprightStage::UPRIGHT;
    if ((leanOfMovable < gsl_UprightStage::NEARLY_UPRIGHT && !uprightMovable) ||
        (leanOfFixed < gsl_UprightStage::NEARLY_UPRIGHT && !uprightFixed))
    {
        upright_.Clip(movable, fixed, corners.movable, corners.fixed, span);
    }
    else if (uprightMovable && uprightFixed)
    {
        upright_.BothUpright(movable, fixed, corners.movable, corners.fixed, span);
    }
    else if (uprightFixed)
    {
        Project(fixed, movable, -frame_.along, corners.fixed, corners.movable, span);
        span.ExchangeRoles();
    }
    else
    {
        Project(movable, fixed, frame_.along, corners.movable, corners.fixed, span);
    }
    return span;
}

void gsl_PairStage::Project(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                            bool cornersOfA, bool cornersOfB, gsl_TravelSpan& span) const
{
    const gsl_Triple& origin = b.origin;
    const double slope = gsl_Dot3(b.normal, dir);
    if (std::abs(slope) < NO_PROJECTION)
    {
        return;
    }
    const gsl_Facet& facet = b.facet;
    Shadow shadow;
    int inside = 0;
    for (int i = 0; i < 3; ++i)
    {
        const gsl_Triple corner = a.corner[i] - origin;
        const double travel = -gsl_Dot3(b.normal, corner) / slope;
        shadow.corner[i] = corner + dir * travel;
        for (int side = 0; side < 3; ++side)
        {
            shadow.area[i][side] = facet.AreaAt(shadow.corner[i], side);
        }
        if (cornersOfA && facet.Holds(shadow.corner[i], shadow.area[i], tolerance_))
        {
            span.Add(travel, a.corner[i], origin + shadow.corner[i]);
            ++inside;
        }
    }
    if (inside < 3 && cornersOfB)
    {
        CarryBack(a, b, dir, shadow, span);
    }
    if (inside < 3 && cornersOfA && cornersOfB)
    {
        CrossSides(a, b, dir, shadow, span);
    }
}

void gsl_PairStage::CarryBack(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                              const Shadow& shadow, gsl_TravelSpan& span) const
{
    const double slope = gsl_Dot3(a.normal, dir);
    if (std::abs(slope) < HOLDS_DIRECTION)
    {
        return;
    }
    std::optional<gsl_Facet> shadowFacet;
    for (int j = 0; j < 3; ++j)
    {
        const gsl_Triple corner = b.corner[j] - a.origin;
        const double travel = gsl_Dot3(a.normal, corner) / slope;
        const gsl_Triple hit = corner - dir * travel;
        if (!a.facet.Holds(hit, tolerance_))
        {
            continue;
        }
        if (!shadowFacet)
        {
            shadowFacet.emplace(shadow.corner, b.normal);
            if (shadowFacet->IsDegenerate(LEAST_SINE))
            {
                return;
            }
        }
        if (shadowFacet->Holds(b.facet.Corner(j), tolerance_))
        {
            span.Add(travel, a.origin + hit, b.corner[j]);
        }
    }
}

void gsl_PairStage::CrossSides(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                               const Shadow& shadow, gsl_TravelSpan& span) const
{
    const gsl_Facet& facet = b.facet;
    for (int sideOfA = 0; sideOfA < 3; ++sideOfA)
    {
        const int start = gsl_Facet::START[sideOfA];
        const int end = gsl_Facet::END[sideOfA];
        const gsl_Triple along = shadow.corner[end] - shadow.corner[start];
        for (int sideOfB = 0; sideOfB < 3; ++sideOfB)
        {
            const double atStart = shadow.area[start][sideOfB];
            const double atEnd = shadow.area[end][sideOfB];
            const double lengthOfB = facet.Length(sideOfB);
            const double beside = tolerance_ * lengthOfB;
            double s1 = 0.0;
            double s2 = 0.0;
            // An edge of a along dir has no direction here: its ends are corner candidates.
            if ((atStart > beside && atEnd > beside) || (atStart < -beside && atEnd < -beside) ||
                !Cross(shadow.corner[start], along, facet.Corner(gsl_Facet::START[sideOfB]),
                       facet.Along(sideOfB), tolerance_, s1, s2))
            {
                continue;
            }
            const double length = gsl_Length3(along);
            if (s1 * length < -tolerance_ || (s1 - 1.0) * length > tolerance_ ||
                s2 * lengthOfB < -tolerance_ || (s2 - 1.0) * lengthOfB > tolerance_)
            {
                continue;
            }
            const gsl_Triple onA = gsl_Between3(a.corner[start], a.corner[end], std::clamp(s1, 0.0, 1.0));
            const gsl_Triple onB = gsl_Between3(b.corner[gsl_Facet::START[sideOfB]],
                                                b.corner[gsl_Facet::END[sideOfB]], std::clamp(s2, 0.0, 1.0));
            span.Add(gsl_Dot3(onB - onA, dir), onA, onB);
        }
    }
}

bool gsl_PairStage::Cross(const gsl_Triple& p1, const gsl_Triple& d1, const gsl_Triple& p2,
                          const gsl_Triple& d2, double tolerance, double& s1, double& s2)
{
    // The closest points differ along d1 x d2 alone (R. Goldman, "Intersection of two lines in three-space",
    // Graphics Gems, 1990).
    const gsl_Triple across = gsl_Cross3(d1, d2);
    const double squared = gsl_Dot3(across, across);
    const gsl_Triple way = p2 - p1;
    const double gap = gsl_Dot3(way, across);
    if (!(squared >= PARALLEL_EDGES * PARALLEL_EDGES * gsl_Dot3(d1, d1) * gsl_Dot3(d2, d2)) ||
        squared == 0.0 || gap * gap > tolerance * tolerance * squared)
    {
        return false;
    }
    s1 = gsl_Dot3(gsl_Cross3(way, d2), across) / squared;
    s2 = gsl_Dot3(gsl_Cross3(way, d1), across) / squared;
    return true;
}

bool gsl_PairStage::LeastByPlanes(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed,
                                  double& least) const
{
    const bool byFixed = std::abs(fixed.cosine) >= gsl_UprightStage::NEARLY_UPRIGHT;
    const bool byMovable = std::abs(movable.cosine) >= gsl_UprightStage::NEARLY_UPRIGHT;
    double off = TOLERANCES_OFF * tolerance_;
    if (byFixed)
    {
        off += TOLERANCES_BESIDE * tolerance_ / std::abs(fixed.cosine);
    }
    if (byMovable)
    {
        off += TOLERANCES_BESIDE * tolerance_ / std::abs(movable.cosine);
    }
    double most = std::numeric_limits<double>::max();
    if (byFixed)
    {
        // Way of each corner of the movable triangle to the fixed plane.
        const double perCosine = -1.0 / fixed.cosine;
        const Range way = RangeFrom(movable, fixed.corner[0], fixed.normal * perCosine);
        least = std::max(least, way.low - off);
        most = std::min(most, way.high + off);
    }
    if (byMovable)
    {
        // Way of the movable plane to each corner of the fixed triangle.
        const double perCosine = 1.0 / movable.cosine;
        const Range way = RangeFrom(fixed, movable.corner[0], movable.normal * perCosine);
        least = std::max(least, way.low - off);
        most = std::min(most, way.high + off);
    }
    return most >= -tolerance_;
}

bool gsl_PairStage::SeenApart(const gsl_StageView& a, const gsl_StageView& b) const
{
    // Two triangles of a plane are apart when a side of one of them separates them. Corners run
    // counter-clockwise, so what is inside a side lies to its left.
    const double reach = TOLERANCES_OFF * tolerance_ + a.rounding + b.rounding;
    const gsl_StageView* pair[2] = {&a, &b};
    for (int k = 0; k < 2; ++k)
    {
        const auto& own = pair[k]->across;
        const auto& other = pair[1 - k]->across;
        for (int side = 0; side < 3; ++side)
        {
            const double* start = own[side];
            const double* end = own[(side + 1) % 3];
            const double dx = end[0] - start[0];
            const double dy = end[1] - start[1];
            const auto left = [&](const double* p) {
                return (p[1] - start[1]) * dx - (p[0] - start[0]) * dy;
            };
            if (std::max({left(other[0]), left(other[1]), left(other[2])}) <
                -reach * (std::abs(dx) + std::abs(dy)))
            {
                return true;
            }
        }
    }
    return false;
}
