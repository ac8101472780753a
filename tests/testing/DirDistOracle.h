#pragma once

#include <array>
#include <vector>

/// Contact travel decided by another method than the library's search.
///
/// Triangle A moved by t along the unit direction u meets triangle B exactly when t·u lies in the convex
/// polytope B - A (the Minkowski difference, the hull of the nine corner differences). The line along u
/// cuts it in an interval. Seen along u the nine differences are points of a plane with heights, and the
/// ends of the interval are the lowest and highest height over the origin of that plane: by Carathéodory's
/// theorem each is reached on one triangle, edge or corner of the nine points. All of them are tried, in
/// long double, without any pruning that a search would need.
namespace testing_oracle
{
using Point = std::array<double, 3>;
using Triangle = std::array<Point, 3>;

/// The travels at which two triangles meet; `meets` is false when there is none, ahead or behind.
struct Interval
{
    bool meets = false;
    long double first = 0;
    long double last = 0;
};

/// A plane across the direction, with the direction as height.
class Frame
{
public:
    explicit Frame(const Point& direction);
    std::array<long double, 3> Seen(const Point& p) const; ///< two coordinates across, one along

private:
    std::array<std::array<long double, 3>, 3> axes_{};
};

/// Interval of two triangles, the movable one displaced across the direction by (across1, across2).
/// `reach` is how far beside the line a candidate may lie: rounding of the coordinates, no more.
Interval MeetingInterval(const Frame& frame, const Triangle& movable, const Triangle& fixed,
                         long double across1, long double across2, long double reach);

/// First contact of two sets: found and the travel.
struct Contact
{
    bool found = false;
    double travel = 0;
};

/// The answer for the parts as they are, or with the movable one displaced across the direction. Answers for
/// small displacements decide sets that only graze, where the last bit of a coordinate settles whether there
/// is contact: every answer between the earliest and the latest is right then.
Contact FirstContact(const std::vector<Triangle>& fixed, const std::vector<Triangle>& movable,
                     const Point& direction, long double across1 = 0, long double across2 = 0);
}
