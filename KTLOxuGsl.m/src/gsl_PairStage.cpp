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

struct Range
{
    double low;
    double high;
};

Range RangeOf(double a, double b, double c)
{
    return {std::min({a, b, c}), std::max({a, b, c})};
}

// The range of three corners along a way.
Range RangeAlong(const gsl_Triple corners[3], const gsl_Triple& way)
{
    return RangeOf(gsl_Dot3(corners[0], way), gsl_Dot3(corners[1], way), gsl_Dot3(corners[2], way));
}

// The same, measured from origin.
Range RangeFrom(const gsl_Triple corners[3], const gsl_Triple& origin, const gsl_Triple& way)
{
    return RangeOf(gsl_Dot3(corners[0] - origin, way), gsl_Dot3(corners[1] - origin, way),
                   gsl_Dot3(corners[2] - origin, way));
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
    if (std::abs(triangle.cosine) >= gsl_UprightStage::NEARLY_UPRIGHT)
    {
        triangle.rise = normal * (1.0 / triangle.cosine);
        triangle.level = gsl_Dot3(triangle.rise, corners[0]);
        triangle.perCosine = 1.0 / std::abs(triangle.cosine);
    }
    const Range heights = RangeAlong(corners, frame_.along);
    triangle.low = heights.low;
    triangle.high = heights.high;
    triangle.rounding =
        ROUNDINGS * EPSILON *
        std::max({gsl_Largest3(corners[0]), gsl_Largest3(corners[1]), gsl_Largest3(corners[2])});
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
    view.turn = (q[0] - p[0]) * (r[1] - p[1]) < (q[1] - p[1]) * (r[0] - p[0]) ? -1.0 : 1.0;
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
    const double gap = fixed.low - movable.high;
    double least = std::max(boxes, gap > ClearGap() ? gap : gap - tolerance_ - rounding);
    if (least > limit || !LeastByPlanes(movable, fixed, least) || least > limit)
    {
        return false;
    }
    const gsl_StageView& viewOfMovable = ViewOf(movable, store);
    const gsl_StageView& viewOfFixed = ViewOf(fixed, store);
    gsl_PairTests tests;
    double contact = 0.0;
    if (SeenApart(viewOfMovable, viewOfFixed, tests) ||
        !Span(viewOfMovable, viewOfFixed, tests).Ahead(tolerance_, contact))
    {
        return false;
    }
    // Only rounding, and contact accepted beside a triangle, can have put it below what boxes, planes and
    // ranges allow.
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
    return RangeFrom(movable.corner, fixed.corner[0], against).high <
           RangeFrom(fixed.corner, fixed.corner[0], against).low;
}

double gsl_PairStage::Gap(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed) const
{
    const gsl_Triple against = -frame_.along;
    return RangeFrom(movable.corner, fixed.corner[0], against).low -
           RangeFrom(fixed.corner, fixed.corner[0], against).high;
}

gsl_TravelSpan gsl_PairStage::Span(const gsl_StageView& movable, const gsl_StageView& fixed,
                                   const gsl_PairTests& tests) const
{
    gsl_TravelSpan span;
    const double leanOfMovable = std::abs(movable.cosine);
    const double leanOfFixed = std::abs(fixed.cosine);
    const bool uprightMovable = leanOfMovable < gsl_UprightStage::UPRIGHT;
    const bool uprightFixed = leanOfFixed < gsl_UprightStage::UPRIGHT;
    if ((leanOfMovable < gsl_UprightStage::NEARLY_UPRIGHT && !uprightMovable) ||
        (leanOfFixed < gsl_UprightStage::NEARLY_UPRIGHT && !uprightFixed))
    {
        upright_.Clip(movable, fixed, tests, span);
    }
    else if (uprightMovable && uprightFixed)
    {
        upright_.BothUpright(movable, fixed, tests, span);
    }
    else if (uprightFixed)
    {
        Project(fixed, movable, -frame_.along, {tests.fixed, tests.movable, tests.edges}, span);
        span.ExchangeRoles();
    }
    else
    {
        Project(movable, fixed, frame_.along, tests, span);
    }
    return span;
}

void gsl_PairStage::Project(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                            const gsl_PairTests& tests, gsl_TravelSpan& span) const
{
    const double slope = gsl_Dot3(b.normal, dir);
    if (std::abs(slope) < NO_PROJECTION)
    {
        return;
    }
    gsl_Triple shadow[3];
    int inside = 0;
    for (int i = 0; i < 3; ++i)
    {
        const gsl_Triple corner = a.corner[i] - b.origin;
        const double travel = -gsl_Dot3(b.normal, corner) / slope;
        shadow[i] = corner + dir * travel;
        if (gsl_PairTests::Has(tests.movable, i) && b.facet.Holds(shadow[i], tolerance_))
        {
            span.Add(travel, a.corner[i], b.origin + shadow[i]);
            ++inside;
        }
    }
    if (inside == 3)
    {
        return;
    }
    if (tests.fixed != 0)
    {
        CarryBack(a, b, dir, shadow, tests.fixed, span);
    }
    if (tests.edges)
    {
        CrossSides(a, b, dir, shadow, span);
    }
}

void gsl_PairStage::CarryBack(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                              const gsl_Triple shadow[3], unsigned corners, gsl_TravelSpan& span) const
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
        if (!gsl_PairTests::Has(corners, j) || !a.facet.Holds(hit, tolerance_))
        {
            continue;
        }
        if (!shadowFacet)
        {
            shadowFacet.emplace(shadow, b.normal);
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
                               const gsl_Triple shadow[3], gsl_TravelSpan& span) const
{
    for (int sideOfB = 0; sideOfB < 3; ++sideOfB)
    {
        const double at[3] = {b.facet.AreaAt(shadow[0], sideOfB), b.facet.AreaAt(shadow[1], sideOfB),
                              b.facet.AreaAt(shadow[2], sideOfB)};
        const double beside = tolerance_ * b.facet.Length(sideOfB);
        if (std::min({at[0], at[1], at[2]}) > beside || std::max({at[0], at[1], at[2]}) < -beside)
        {
            continue;
        }
        for (int sideOfA = 0; sideOfA < 3; ++sideOfA)
        {
            const double atStart = at[gsl_Facet::START[sideOfA]];
            const double atEnd = at[gsl_Facet::END[sideOfA]];
            if (std::min(atStart, atEnd) <= beside && std::max(atStart, atEnd) >= -beside)
            {
                CrossSide(a, sideOfA, b, sideOfB, dir, shadow, atStart, atEnd, span);
            }
        }
    }
}

void gsl_PairStage::CrossSide(const gsl_StageView& a, int sideOfA, const gsl_StageView& b, int sideOfB,
                              const gsl_Triple& dir, const gsl_Triple shadow[3], double atStart, double atEnd,
                              gsl_TravelSpan& span) const
{
    const int start = gsl_Facet::START[sideOfA];
    const int end = gsl_Facet::END[sideOfA];
    const gsl_Triple along = shadow[end] - shadow[start];
    const gsl_Triple alongB = b.facet.Along(sideOfB);
    const double squared = gsl_Dot3(along, along);
    const double squaredB = b.facet.Length(sideOfB) * b.facet.Length(sideOfB);
    // The two lie in one plane, so where a's side crosses the line of b's side the areas at its ends tell:
    // there they pass through 0. Their difference is the sine of the two, times both lengths.
    const double turn = atStart - atEnd;
    if (turn == 0.0 || turn * turn < PARALLEL_EDGES * PARALLEL_EDGES * squared * squaredB)
    {
        return; // parallel, or an edge of a along dir: the ends are corner candidates
    }
    const double s1 = atStart / turn;
    const gsl_Triple crossing = shadow[start] + along * s1;
    const gsl_Triple& startOfB = b.facet.Corner(gsl_Facet::START[sideOfB]);
    const double s2 = gsl_Dot3(crossing - startOfB, alongB) / squaredB;
    if (!IsWithin(s1, squared) || !IsWithin(s2, squaredB))
    {
        return;
    }
    const gsl_Triple onA = gsl_Between3(a.corner[start], a.corner[end], std::clamp(s1, 0.0, 1.0));
    const gsl_Triple onB = gsl_Between3(b.corner[gsl_Facet::START[sideOfB]],
                                        b.corner[gsl_Facet::END[sideOfB]], std::clamp(s2, 0.0, 1.0));
    span.Add(gsl_Dot3(onB - onA, dir), onA, onB);
}

bool gsl_PairStage::IsWithin(double share, double squaredLength) const noexcept
{
    const double beyond = share < 0.0 ? share : std::max(share - 1.0, 0.0);
    return beyond * beyond * squaredLength <= tolerance_ * tolerance_;
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
    const double off =
        TOLERANCES_OFF * tolerance_ + (TOLERANCES_BESIDE * tolerance_ + movable.rounding + fixed.rounding) *
                                          (movable.perCosine + fixed.perCosine);
    double most = std::numeric_limits<double>::max();
    if (fixed.perCosine > 0.0)
    {
        // Way of each corner of the movable triangle to the fixed plane.
        const Range place = RangeAlong(movable.corner, fixed.rise);
        least = std::max(least, fixed.level - place.high - off);
        most = fixed.level - place.low + off;
    }
    if (movable.perCosine > 0.0)
    {
        // Way of the movable plane to each corner of the fixed triangle.
        const Range place = RangeAlong(fixed.corner, movable.rise);
        least = std::max(least, place.low - movable.level - off);
        most = std::min(most, place.high - movable.level + off);
    }
    return most >= -tolerance_;
}

bool gsl_PairStage::SeenApart(const gsl_StageView& a, const gsl_StageView& b, gsl_PairTests& tests) const
{
    // Two triangles of a plane are apart when a side of one of them separates them. To the left of a side
    // that runs counter-clockwise lies what is inside it.
    const double reach = TOLERANCES_OFF * tolerance_ + a.rounding + b.rounding;
    const gsl_StageView* pair[2] = {&a, &b};
    unsigned outside[2] = {0, 0};
    for (int k = 0; k < 2; ++k)
    {
        const auto& own = pair[k]->across;
        const auto& other = pair[1 - k]->across;
        for (int side = 0; side < 3; ++side)
        {
            const double* start = own[side];
            const double* end = own[(side + 1) % 3];
            const double dx = (end[0] - start[0]) * pair[k]->turn;
            const double dy = (end[1] - start[1]) * pair[k]->turn;
            const double far = -reach * (std::abs(dx) + std::abs(dy));
            unsigned beyond = 0;
            for (int i = 0; i < 3; ++i)
            {
                const double left = (other[i][1] - start[1]) * dx - (other[i][0] - start[0]) * dy;
                beyond |= (left < far ? 1U : 0U) << i;
            }
            if (beyond == gsl_PairTests::ALL)
            {
                return true;
            }
            outside[1 - k] |= beyond;
        }
    }
    tests.movable &= ~outside[0];
    tests.fixed &= ~outside[1];
    return false;
}
