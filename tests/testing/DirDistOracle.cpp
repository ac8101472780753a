#include <testing/DirDistOracle.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace testing_oracle
{
namespace
{
using Seen3 = std::array<long double, 3>;

constexpr long double NONE = std::numeric_limits<long double>::infinity();

// One candidate: a convex combination of the nine points, given by its place across and its height.
struct Extremes
{
    long double reach2;
    Interval interval;

    void Offer(long double across1, long double across2, long double height)
    {
        if (across1 * across1 + across2 * across2 > reach2)
            return;
        if (!interval.meets)
        {
            interval = {true, height, height};
            return;
        }
        interval.first = std::min(interval.first, height);
        interval.last = std::max(interval.last, height);
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
    if (total == 0)
        return;
    long double a = wp / total;
    long double b = wq / total;
    long double c = wr / total;
    if (!(a >= 0 && b >= 0 && c >= 0))
        return; // an edge is nearest then
    extremes.Offer(a * p[0] + b * q[0] + c * r[0], a * p[1] + b * q[1] + c * r[1],
                   a * p[2] + b * q[2] + c * r[2]);
}

// First contact travel of an interval: what lies behind is none, what crosses at the start is 0.
long double Travel(const Interval& interval)
{
    if (!interval.meets || interval.last < 0)
        return NONE;
    return std::max(interval.first, 0.0L);
}

void Lower(Contact& contact, long double& best, long double travel)
{
    if (travel < best)
    {
        best = travel;
        contact = {true, static_cast<double>(travel)};
    }
}

// How far beside the line rounding alone can put a candidate.
long double RoundingReach(const std::vector<Triangle>& fixed, const std::vector<Triangle>& movable)
{
    double scale = 0;
    for (const auto* set : {&fixed, &movable})
        for (const Triangle& triangle : *set)
            for (const Point& p : triangle)
                for (double c : p)
                    scale = std::max(scale, std::fabs(c));
    return 1e-17L * scale;
}

Point Sum(const Point& a, const Point& b, double factor)
{
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}
}

Frame::Frame(const Point& direction)
{
    Seen3 u{direction[0], direction[1], direction[2]};
    const long double length = std::sqrt(u[0] * u[0] + u[1] * u[1] + u[2] * u[2]);
    for (long double& c : u)
        c /= length;
    // The axis that the direction leans on least starts a right-handed frame.
    std::size_t least = 0;
    for (std::size_t i = 1; i < 3; ++i)
        if (std::fabs(u[i]) < std::fabs(u[least]))
            least = i;
    Seen3 e{};
    e[least] = 1;
    Seen3 first{e[1] * u[2] - e[2] * u[1], e[2] * u[0] - e[0] * u[2], e[0] * u[1] - e[1] * u[0]};
    const long double size = std::sqrt(first[0] * first[0] + first[1] * first[1] + first[2] * first[2]);
    for (long double& c : first)
        c /= size;
    const Seen3 second{u[1] * first[2] - u[2] * first[1], u[2] * first[0] - u[0] * first[2],
                       u[0] * first[1] - u[1] * first[0]};
    axes_ = {first, second, u};
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
    {
        for (std::size_t j = 0; j < 3; ++j)
        {
            Seen3& p = points[3 * i + j];
            p = frame.Seen(Sum(fixed[j], movable[i], -1));
            p[0] -= across1;
            p[1] -= across2;
        }
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
    {
        for (std::size_t j = i + 1; j < 9; ++j)
        {
            OfferSegment(extremes, points[i], points[j]);
            for (std::size_t k = j + 1; k < 9; ++k)
                OfferTriangle(extremes, points[i], points[j], points[k]);
        }
    }
    return extremes.interval;
}

Contact FirstContact(const std::vector<Triangle>& fixed, const std::vector<Triangle>& movable,
                     const Point& direction)
{
    const Frame frame(direction);
    const long double reach = RoundingReach(fixed, movable);
    Contact contact;
    long double best = NONE;
    for (const Triangle& f : fixed)
        for (const Triangle& m : movable)
            Lower(contact, best, Travel(MeetingInterval(frame, m, f, 0, 0, reach)));
    return contact;
}

Bracket ContactBracket(const std::vector<Triangle>& fixed, const std::vector<Triangle>& movable,
                       const Point& direction, double margin)
{
    const Frame frame(direction);
    const long double reach = RoundingReach(fixed, movable);
    constexpr int DIRECTIONS = 16;
    std::array<std::array<long double, 2>, DIRECTIONS> ring{};
    for (int i = 0; i < DIRECTIONS; ++i)
    {
        const long double angle = 6.283185307179586476925L * i / DIRECTIONS;
        ring[static_cast<std::size_t>(i)] = {margin * std::cos(angle), margin * std::sin(angle)};
    }

    Bracket bracket;
    long double bestGrown = NONE;
    long double bestShrunk = NONE;
    for (const Triangle& f : fixed)
    {
        for (const Triangle& m : movable)
        {
            Interval grown = MeetingInterval(frame, m, f, 0, 0, 2 * margin);
            if (!grown.meets)
                continue;
            Interval shrunk = MeetingInterval(frame, m, f, 0, 0, reach);
            for (const auto& [across1, across2] : ring)
            {
                const Interval beside = MeetingInterval(frame, m, f, across1, across2, reach);
                if (beside.meets)
                {
                    grown.first = std::min(grown.first, beside.first);
                    grown.last = std::max(grown.last, beside.last);
                }
                shrunk.meets = shrunk.meets && beside.meets;
                shrunk.first = std::max(shrunk.first, beside.first);
                shrunk.last = std::min(shrunk.last, beside.last);
            }
            grown.first -= margin;
            grown.last += margin;
            Lower(bracket.grown, bestGrown, Travel(grown));
            // A flat pair (first == last) is met on the way however small the parts are; only what ends
            // before the start, within the margin, is lost by shrinking.
            if (shrunk.meets && shrunk.last >= margin)
                Lower(bracket.shrunk, bestShrunk, std::max(shrunk.first + margin, 0.0L));
        }
    }
    return bracket;
}
}
