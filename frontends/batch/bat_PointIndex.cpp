#include <algorithm>
#include <bat_PointIndex.h>
#include <cmath>

namespace
{
// A hair, so that what rounding of the squares lets pass is looked at.
constexpr double HAIR = 1e-9;
// No two points are as far apart; beyond it only the comparison looks at the tolerance.
constexpr double LONGEST_REACH = 1e300;
// In reaches. Larger cells hold more points, smaller ones make more of them be looked at.
constexpr double CELL_SIZE = 4.0;

double SquaredDistance(const bat_PointIndex::Point& a, const bat_PointIndex::Point& b)
{
    const double dx = a[0] - b[0];
    const double dy = a[1] - b[1];
    const double dz = a[2] - b[2];
    return dx * dx + dy * dy + dz * dz;
}
}

bat_PointIndex::bat_PointIndex(double tolerance, std::size_t expected)
    : tolerance_(tolerance),
      reach_(std::min(tolerance * (1.0 + HAIR), LONGEST_REACH)),
      cellSize_(CELL_SIZE * reach_),
      cells_(expected)
{}

std::uint32_t bat_PointIndex::Add(const Point& point)
{
    if (tolerance_ == 0.0)
        return cells_.Add({point[0] + 0.0, point[1] + 0.0, point[2] + 0.0}); // minus zero is zero
    const std::uint32_t kept = FindKept(point);
    if (kept != NONE)
        return kept;
    Keep(point);
    return static_cast<std::uint32_t>(points_.size() - 1);
}

bat_PointIndex::Point bat_PointIndex::Cell(const Point& point, double away) const
{
    Point cell;
    for (std::size_t k = 0; k < 3; ++k)
        cell[k] = std::floor((point[k] + away) / cellSize_) + 0.0;
    return cell;
}

// Sums, quotients and floors that are rounded never change sides: a point within reach lies in a cell from
// low to high, however large its coordinates are. Where cells have numbers so large that adding 1 changes
// nothing, the reach is lost in the coordinates, and low is high: so the steps are counted.
std::uint32_t bat_PointIndex::FindKept(const Point& point) const
{
    const Point low = Cell(point, -reach_);
    const Point high = Cell(point, reach_);
    const double bound = tolerance_ * tolerance_;
    std::uint32_t first = NONE;
    const auto last = [&](std::size_t k) { return static_cast<int>(high[k] - low[k]); };
    for (int i = 0; i <= last(0); ++i)
        for (int j = 0; j <= last(1); ++j)
            for (int k = 0; k <= last(2); ++k)
            {
                const Point cell = {low[0] + i, low[1] + j, low[2] + k};
                const std::uint32_t number = cells_.Find(cell);
                if (number == NONE)
                    continue;
                for (std::uint32_t at = firstOfCell_[number]; at != NONE; at = nextInCell_[at])
                    if (at < first && SquaredDistance(points_[at], point) < bound)
                        first = at;
            }
    return first;
}

void bat_PointIndex::Keep(const Point& point)
{
    const std::uint32_t cell = cells_.Add(Cell(point, 0.0));
    if (cell == firstOfCell_.size())
        firstOfCell_.push_back(NONE);
    nextInCell_.push_back(firstOfCell_[cell]);
    firstOfCell_[cell] = static_cast<std::uint32_t>(points_.size());
    points_.push_back(point);
}
