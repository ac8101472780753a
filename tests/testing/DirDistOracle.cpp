#include <testing/DirDistOracle.h>

#include <algorithm>
#include <cmath>

namespace testing_oracle
{
namespace
{
using Seen3 = std::array<long double, 3>;

// How far beside the line rounding alone can put a candidate.
constexpr long double ROUNDING = 1e-15L;

Seen3 Cross(const Seen3& a, const Seen3& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Seen3 Unit(const Seen3& v)
{
    const long double length = std::hypot(v[0], v[1], v[2]);
    return {v[0] / length, v[1] / length, v[2] / length};
}

// One candidate: a convex combination of the nine points, given by its place across and its height.
struct Extremes
{
    long double reach2;
    Interval interval;

    void Offer(long double across1, long double across2, long double height)
    {
        if (across1 * across1 + across2 * across2 > reach2)
            return;
        interval.first = interval.meets ? std::min(interval.first, height) : height;
        interval.last = interval.meets ? std::max(interval.last, height) : height;
        interval.meets = true;
    }
};

// The points of segment pq nearest to the origin across, which also serves the two corners.
void OfferSegment(Extremes& extremes, const Seen3& p, const Seen3& q)
{
    const long double d1 = q[0] - p[0];
    const long double d2 = q[1] - p[1];
    const long double length2 = d1 * d1 + d2 * d2;
    extremes.Offer(p[0], p[1], p[2]);
    extremes.Offer(q[0], q[1], q[2]);
    if (length2 == 0)
        return;
    const long double s = std::clamp(-(p[0] * d1 + p[1] * d2) / length2, 0.0L, 1.0L);
    extremes.Offer(p[0] + s * d1, p[1] + s * d2, p[2] + s * (q[2] - p[2]));
}

// The point of triangle pqr over the origin, where there is one.
void OfferTriangle(Extremes& extremes, const Seen3& p, const Seen3& q, const Seen3& r)
{
    const long double wp = q[0] * r[1] - q[1] * r[0];
    const long double wq = r[0] * p[1] - r[1] * p[0];
    const long double wr = p[0] * q[1] - p[1] * q[0];
    const long double total = wp + wq + wr;
    const long double a = wp / total;
    const long double b = wq / total;
    const long double c = wr / total;
    if (total != 0 && a >= 0 && b >= 0 && c >= 0) // else an edge is nearest
        extremes.Offer(a * p[0] + b * q[0] + c * r[0], a * p[1] + b * q[1] + c * r[1],
                       a * p[2] + b * q[2] + c * r[2]);
}
}

Frame::Frame(const Point& direction)
{
    const Seen3 u = Unit({direction[0], direction[1], direction[2]});
    // The axis that the direction leans on least starts a right-handed frame.
    Seen3 e{};
    const auto lessAlong = [](long double a, long double b) { return std::fabs(a) < std::fabs(b); };
    *std::next(e.begin(), std::min_element(u.begin(), u.end(), lessAlong) - u.begin()) = 1;
    const Seen3 first = Unit(Cross(e, u));
    axes_ = {first, Cross(u, first), u};
}

std::array<long double, 3> Frame::Seen(const Point& p) const
{
    Seen3 seen{};
    for (std::size_t i = 0; i < 3; ++i)
        seen[i] = axes_[i][0] * p[0] + axes_[i][1] * p[1] + axes_[i][2] * p[2];
    return seen;
}

Interval MeetingInterval(const Frame& frame, const Triangle& movable, const Triangle& fixed,
                         long double across1, long double across2, long double reach)
{
    std::array<Seen3, 9> points{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
        {
            Seen3& p = points[3 * i + j];
            p = frame.Seen(
                {fixed[j][0] - movable[i][0], fixed[j][1] - movable[i][1], fixed[j][2] - movable[i][2]});
            p[0] -= across1;
            p[1] -= across2;
        }
    for (std::size_t axis = 0; axis < 2; ++axis)
    {
        const auto [low, high] =
            std::minmax_element(points.begin(), points.end(),
                                [axis](const Seen3& p, const Seen3& q) { return p[axis] < q[axis]; });
        if ((*low)[axis] > reach || (*high)[axis] < -reach)
            return {};
    }
    Extremes extremes{reach * reach, {}};
    for (std::size_t i = 0; i < 9; ++i)
        for (std::size_t j = i + 1; j < 9; ++j)
        {
            OfferSegment(extremes, points[i], points[j]);
            for (std::size_t k = j + 1; k < 9; ++k)
                OfferTriangle(extremes, points[i], points[j], points[k]);
        }
    return extremes.interval;
}

Contact FirstContact(const std::vector<Triangle>& fixed, const std::vector<Triangle>& movable,
                     const Point& direction, long double across1, long double across2)
{
    const Frame frame(direction);
    Contact contact;
    for (const Triangle& f : fixed)
        for (const Triangle& m : movable)
        {
            // What lies behind is none, what crosses at the start is 0.
            const Interval interval = MeetingInterval(frame, m, f, across1, across2, ROUNDING);
            const double travel = std::max(static_cast<double>(interval.first), 0.0);
            if (interval.meets && interval.last >= 0 && (!contact.found || travel < contact.travel))
                contact = {true, travel};
        }
    return contact;
}
}
