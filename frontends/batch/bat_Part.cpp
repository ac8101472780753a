#include <algorithm>
#include <bat_MeshError.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Task.h>
#include <cmath>
#include <cow_String.h>
#include <gsl_TriOctreeNode.h>
#include <gsl_Util.h>
#include <limits>
#include <utility>

namespace
{
// Squares of areas, fourth powers of lengths, must stay finite.
constexpr double LARGEST_COORDINATE = 1e75;
constexpr std::size_t MOST_TRIANGLES = std::numeric_limits<int>::max();
}

bat_Part::bat_Part(std::string file, bat_TriangleMesh mesh) : file_(std::move(file)), mesh_(std::move(mesh))
{
    if (mesh_.Length() > MOST_TRIANGLES)
        throw bat_MeshError(file_, "more than " + bat_CountText(MOST_TRIANGLES) + " triangles");
    const double flat = gsl_Util::Instance().ParallelTolerance();
    hasNormal_.resize(mesh_.Length());
    double low[3];
    double high[3];
    std::fill(low, low + 3, std::numeric_limits<double>::max());
    std::fill(high, high + 3, std::numeric_limits<double>::lowest());
    gsl_Point p[3];
    bat_Task task(mesh_.Length());
    for (int i = 0; i < Count(); ++i, task.Step())
    {
        const bat_Corners corners = Corners(i);
        for (std::size_t k = 0; k < corners.size(); ++k)
        {
            low[k % 3] = std::min(low[k % 3], corners[k]);
            high[k % 3] = std::max(high[k % 3], corners[k]);
        }
        for (std::size_t c = 0; c < 3; ++c)
            p[c].Set(corners[3 * c], corners[3 * c + 1], corners[3 * c + 2]);
        const bool hasNormal = gsl_Vector(p[0], p[1], p[2]).Magnitude() >= flat;
        hasNormal_[static_cast<std::size_t>(i)] = hasNormal;
        degenerate_ += !hasNormal;
    }
    if (mesh_.IsEmpty())
        return;
    box_ = gsl_BBox(gsl_Point(low), gsl_Point(high));
    for (int k = 0; k < 3; ++k)
        reach_ = std::max({reach_, std::abs(low[k]), std::abs(high[k])});
    if (reach_ > LARGEST_COORDINATE)
        throw bat_MeshError(file_, "a coordinate of " + bat_ReadableText(reach_) + " is beyond the " +
                                       bat_ReadableText(LARGEST_COORDINATE) + " that can be computed with");
}

void bat_Part::Plant(gsl_TriOctree::OctreeNodeType type, int depth)
{
    tree_ = cow_CountedHld<gsl_TriOctree>(new gsl_TriOctree(box_, cow_String(file_.c_str()), type, depth));
    gsl_TriOctreeNode& root = *tree_->Root();
    outside_ = 0;
    gsl_Point p[3];
    bat_Task task(mesh_.Length());
    for (int i = 0; i < Count(); ++i, task.Step())
    {
        const bat_Corners corners = Corners(i);
        for (std::size_t c = 0; c < 3; ++c)
            p[c].Set(corners[3 * c], corners[3 * c + 1], corners[3 * c + 2]);
        outside_ += !root.Add(p[0], p[1], p[2], i);
    }
}
