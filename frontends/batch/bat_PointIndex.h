#pragma once

#include <array>
#include <bat_Numbering.h>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Merges points in the order in which they come: a point that lies on none of those kept before is kept, any
/// other one is represented by the first kept one that it lies on.
///
/// With a tolerance T above 0 points lie on each other when their squared distance is below T squared,
/// strictly: what gsl_MergePointsWithinAcisTol keeps with that linear tolerance is what is kept here. With 0
/// they do when their coordinates are the same. Kept points are T apart at least, so that a cell of the grid
/// holds few of them, and time grows with the number of points alone.
class bat_PointIndex
{
public:
    using Point = std::array<double, 3>;

    /// Below it the square of a tolerance, or of a distance beside it, would vanish.
    static constexpr double SMALLEST_TOLERANCE = 1e-150;

    /// tolerance is 0, or from SMALLEST_TOLERANCE on. expected is how many points will be kept.
    explicit bat_PointIndex(double tolerance, std::size_t expected = 0);

    /// The number of the kept point that represents this one, whose coordinates must be finite.
    std::uint32_t Add(const Point& point);

    /// How many are kept; they are numbered in the order in which they came.
    std::size_t Length() const { return tolerance_ > 0.0 ? points_.size() : cells_.Length(); }
    const Point& operator[](std::size_t number) const
    {
        return tolerance_ > 0.0 ? points_[number] : cells_[number];
    }

private:
    static constexpr std::uint32_t NONE = bat_Numbering<Point>::NONE;

    Point Cell(const Point& point, double away) const;
    std::uint32_t FindKept(const Point& point) const;
    void Keep(const Point& point);

    double tolerance_;
    double reach_;
    double cellSize_;
    bat_Numbering<Point> cells_; ///< without a tolerance the points themselves
    std::vector<std::uint32_t> firstOfCell_;
    std::vector<Point> points_;
    std::vector<std::uint32_t> nextInCell_; ///< of each point
};
