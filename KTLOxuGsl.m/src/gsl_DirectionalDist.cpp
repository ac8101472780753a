#include <algorithm>
#include <cmath>
#include <gsl_DirectionalDist.h>
#include <gsl_PairStage.h>
#include <gsl_Plane.h>
#include <gsl_Point.h>
#include <gsl_TravelSpan.h>
#include <gsl_Util.h>
#include <gsl_Vector.h>
#include <gsl_ViewFrame.h>

namespace
{
// Calls found(place) where the line through p along dir meets the segment from q1 to q2: at both ends of a
// segment that lies on the line.
template <class Found>
void MeetSegment(const gsl_Triple& p, const gsl_Triple& dir, const gsl_Triple& q1, const gsl_Triple& q2,
                 double tolerance, Found found)
{
    const gsl_Triple along = q2 - q1;
    const double length = gsl_Length3(along);
    const gsl_Triple unit = length > 0.0 ? along * (1.0 / length) : gsl_Triple{};
    double onLine = 0.0;
    double onSegment = 0.0;
    if (gsl_PairStage::Cross(p, dir, q1, unit, tolerance, onLine, onSegment))
    {
        if (onSegment >= -tolerance && onSegment <= length + tolerance)
        {
            found(q1 + unit * std::clamp(onSegment, 0.0, length));
        }
        return;
    }
    for (const gsl_Triple& end : {q1, q2})
    {
        if (gsl_Length3(gsl_Cross3(end - p, dir)) <= tolerance)
        {
            found(end);
        }
    }
}

gsl_TravelSpan SpanOfSegments(const gsl_Triple& dir, const gsl_Triple a[2], const gsl_Triple b[2],
                              const bool* flags, double tolerance)
{
    gsl_TravelSpan span;
    for (int i = 0; (flags == nullptr || flags[0]) && i < 2; ++i)
    {
        MeetSegment(a[i], dir, b[0], b[1], tolerance,
                    [&](const gsl_Triple& place) { span.Add(gsl_Dot3(place - a[i], dir), a[i], place); });
    }
    for (int i = 0; (flags == nullptr || flags[1]) && i < 2; ++i)
    {
        MeetSegment(b[i], dir, a[0], a[1], tolerance,
                    [&](const gsl_Triple& place) { span.Add(gsl_Dot3(b[i] - place, dir), place, b[i]); });
    }
    return span;
}

// The nearest of the answers so far.
struct Nearest
{
    bool found = false;
    double dist = 0.0;
    gsl_Triple place;

    void Offer(double candidate, const gsl_Triple& where)
    {
        if (!found || candidate < dist)
        {
            *this = {true, candidate, where};
        }
    }
    void Offer(const gsl_TravelSpan& span, double tolerance)
    {
        double travel = 0.0;
        if (span.Ahead(tolerance, travel))
        {
            Offer(travel, span.Place().onFixed);
        }
    }
    bool Answer(gsl_Point* contact, double& out) const
    {
        if (found)
        {
            out = dist;
            if (contact != nullptr)
            {
                contact->Set(place.x, place.y, place.z);
            }
        }
        return found;
    }
};

int DroppedAxis(int axis, const gsl_Vector& normal)
{
    if (axis >= 0 && axis <= 2)
    {
        return axis;
    }
    const double x = std::abs(normal.X());
    const double y = std::abs(normal.Y());
    const double z = std::abs(normal.Z());
    if (x >= y && x >= z)
    {
        return 0;
    }
    return y >= z ? 1 : 2;
}

// Inside all three sides, sides included, with one coordinate dropped; false for a triangle without area
// there.
bool IsInside(const gsl_Triple& p, const gsl_Triple tri[3], int dropped)
{
    const auto flat = [dropped](const gsl_Triple& q, double& u, double& v) {
        u = dropped == 0 ? q.y : q.x;
        v = dropped == 2 ? q.y : q.z;
    };
    int above = 0;
    int below = 0;
    for (int i = 0; i < 3; ++i)
    {
        double u = 0.0;
        double v = 0.0;
        double du = 0.0;
        double dv = 0.0;
        flat(p - tri[i], u, v);
        flat(tri[(i + 1) % 3] - tri[i], du, dv);
        const double area = du * v - dv * u;
        above += area > 0.0 ? 1 : 0;
        below += area < 0.0 ? 1 : 0;
    }
    return (above > 0) != (below > 0);
}
}

bool gsl_TriTriMinDirectionalDist(const gsl_Vector& dir, const gsl_Point& a1, const gsl_Point& a2,
                                  const gsl_Point& a3, const gsl_Point& b1, const gsl_Point& b2,
                                  const gsl_Point& b3, const bool* flags, double tol, gsl_Point* contact,
                                  double& dist)
{
    const gsl_Vector normalA(a1, a2, a3);
    const gsl_Vector normalB(b1, b2, b3);
    gsl_Vector along;
    if (!gsl_ViewFrame::Unit(dir, along) || normalA.Magnitude() == 0.0 || normalB.Magnitude() == 0.0)
    {
        return false;
    }
    gsl_PairTests tests;
    if (flags != nullptr)
    {
        tests.movable = flags[0] ? gsl_PairTests::ALL : 0;
        tests.fixed = flags[1] ? gsl_PairTests::ALL : 0;
        tests.edges = flags[0] && flags[1];
    }
    const gsl_PairStage stage(gsl_TripleOf(along), tol);
    const gsl_Triple a[3] = {gsl_TripleOf(a1), gsl_TripleOf(a2), gsl_TripleOf(a3)};
    const gsl_Triple b[3] = {gsl_TripleOf(b1), gsl_TripleOf(b2), gsl_TripleOf(b3)};
    const gsl_TravelSpan span = stage.Span(stage.View(stage.Prepare(a, gsl_TripleOf(normalA))),
                                           stage.View(stage.Prepare(b, gsl_TripleOf(normalB))), tests);
    Nearest nearest;
    nearest.Offer(span, tol);
    return nearest.Answer(contact, dist);
}

bool gsl_InPlaneSegSegMinDirectionalDist(const gsl_Vector& dir, const gsl_Point& a1, const gsl_Point& a2,
                                         const gsl_Point& b1, const gsl_Point& b2, const bool* flags,
                                         double tol, gsl_Point* contact, double& dist)
{
    gsl_Vector along;
    if (!gsl_ViewFrame::Unit(dir, along))
    {
        return false;
    }
    const gsl_Triple a[2] = {gsl_TripleOf(a1), gsl_TripleOf(a2)};
    const gsl_Triple b[2] = {gsl_TripleOf(b1), gsl_TripleOf(b2)};
    Nearest nearest;
    nearest.Offer(SpanOfSegments(gsl_TripleOf(along), a, b, flags, tol), tol);
    return nearest.Answer(contact, dist);
}

bool gsl_InPlaneLinTriMinDirectionalDist(const gsl_Point* seg, const gsl_Point* tri, const gsl_Plane& plane,
                                         const gsl_Vector& dir, int axis, gsl_Point* contact, double& dist)
{
    gsl_Vector along;
    if (!gsl_ViewFrame::Unit(dir, along) || !plane.Direction().IsOrthogonal(along))
    {
        return false;
    }
    const gsl_Triple unit = gsl_TripleOf(along);
    const double tolerance = gsl_Util::Instance().LinearTolerance();
    const int dropped = DroppedAxis(axis, plane.Direction());
    const gsl_Triple line[2] = {gsl_TripleOf(seg[0]), gsl_TripleOf(seg[1])};
    const gsl_Triple corners[3] = {gsl_TripleOf(tri[0]), gsl_TripleOf(tri[1]), gsl_TripleOf(tri[2])};
    Nearest nearest;
    for (const gsl_Triple& end : line)
    {
        if (IsInside(end, corners, dropped))
        {
            nearest.Offer(0.0, end);
        }
    }
    for (int i = 0; i < 3; ++i)
    {
        const gsl_Triple side[2] = {corners[i], corners[(i + 1) % 3]};
        nearest.Offer(SpanOfSegments(unit, line, side, nullptr, tolerance), tolerance);
    }
    return nearest.Answer(contact, dist);
}

bool gsl_InPlaneTriTriMinDirectionalDist(const gsl_Point* triA, const gsl_Point* triB, const gsl_Vector& dir,
                                         int axis, gsl_Point* contact, double& dist)
{
    gsl_Vector normal(triB[0], triB[1], triB[2]);
    if (normal.Magnitude() == 0.0)
    {
        normal = gsl_Vector(triA[0], triA[1], triA[2]);
    }
    gsl_Vector along;
    if (!gsl_ViewFrame::Unit(dir, along) || !normal.IsOrthogonal(along))
    {
        return false;
    }
    const gsl_Triple unit = gsl_TripleOf(along);
    const double tolerance = gsl_Util::Instance().LinearTolerance();
    const int dropped = DroppedAxis(axis, normal);
    const gsl_Triple a[3] = {gsl_TripleOf(triA[0]), gsl_TripleOf(triA[1]), gsl_TripleOf(triA[2])};
    const gsl_Triple b[3] = {gsl_TripleOf(triB[0]), gsl_TripleOf(triB[1]), gsl_TripleOf(triB[2])};
    Nearest nearest;
    for (int i = 0; i < 3; ++i)
    {
        if (IsInside(a[i], b, dropped))
        {
            nearest.Offer(0.0, a[i]);
        }
        if (IsInside(b[i], a, dropped))
        {
            nearest.Offer(0.0, b[i]);
        }
    }
    for (int i = 0; i < 3; ++i)
    {
        for (int j = 0; j < 3; ++j)
        {
            const gsl_Triple sideA[2] = {a[i], a[(i + 1) % 3]};
            const gsl_Triple sideB[2] = {b[j], b[(j + 1) % 3]};
            nearest.Offer(SpanOfSegments(unit, sideA, sideB, nullptr, tolerance), tolerance);
        }
    }
    return nearest.Answer(contact, dist);
}
