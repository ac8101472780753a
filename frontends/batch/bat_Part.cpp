#include <algorithm>
#include <bat_MeshError.h>
#include <bat_MeshReader.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Phase.h>
#include <bat_Task.h>
#include <cmath>
#include <cow_String.h>
#include <gsl_TriOctreeNode.h>
#include <gsl_Util.h>
#include <limits>
#include <utility>

namespace
{
void SetPoints(const bat_Corners& corners, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
{
    p1.Set(corners[0], corners[1], corners[2]);
    p2.Set(corners[3], corners[4], corners[5]);
    p3.Set(corners[6], corners[7], corners[8]);
}

std::string TooLarge(double coordinate)
{
    return "a coordinate of " + bat_ReadableText(coordinate) + " is beyond the " +
           bat_ReadableText(bat_Part::LARGEST_COORDINATE) + " that can be computed with";
}
}

bat_Part::bat_Part(std::string file, bat_TriangleMesh mesh, bat_Watcher& watcher)
    : file_(std::move(file)), mesh_(std::move(mesh)), triangles_(mesh_)
{
    Measure(watcher);
}

bat_Part::bat_Part(std::string name, const bat_TriangleView& triangles, bat_Watcher& watcher)
    : file_(std::move(name)), triangles_(triangles)
{
    Measure(watcher);
}

bat_Part bat_Part::Read(const std::string& file, bat_Watcher& watcher, float share)
{
    const bat_Phase phase(watcher, share, "reading " + file);
    bat_TriangleMesh mesh = bat_ReadMesh(file, watcher);
    const std::string about = file + ": ";
    for (const std::string& sentence : mesh.Notes())
        watcher.Note(about + sentence);
    return bat_Part(file, std::move(mesh), watcher);
}

void bat_Part::Points(int triangle, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) const
{
    SetPoints(Corners(triangle), p1, p2, p3);
}

void bat_Part::Measure(bat_Watcher& watcher)
{
    const std::size_t length = triangles_.Length();
    if (length > MOST_TRIANGLES)
        throw bat_MeshError(file_, "more than " + bat_CountText(MOST_TRIANGLES) + " triangles");
    const double flat = gsl_Util::Instance().ParallelTolerance();
    hasNormal_.resize(length);
    double low[3];
    double high[3];
    std::fill(low, low + 3, std::numeric_limits<double>::max());
    std::fill(high, high + 3, std::numeric_limits<double>::lowest());
    gsl_Point p[3];
    bat_Task task(watcher, length);
    for (int i = 0; i < Count(); ++i, task.Step())
    {
        const bat_Corners corners = Corners(i);
        for (std::size_t k = 0; k < corners.size(); ++k)
        {
            low[k % 3] = std::min(low[k % 3], corners[k]);
            high[k % 3] = std::max(high[k % 3], corners[k]);
        }
        SetPoints(corners, p[0], p[1], p[2]);
        const bool hasNormal = gsl_Vector(p[0], p[1], p[2]).Magnitude() >= flat;
        hasNormal_[static_cast<std::size_t>(i)] = hasNormal;
        degenerate_ += !hasNormal;
    }
    if (length == 0)
        return;
    box_ = gsl_BBox(gsl_Point(low), gsl_Point(high));
    for (int k = 0; k < 3; ++k)
        reach_ = std::max({reach_, std::abs(low[k]), std::abs(high[k])});
    if (reach_ > LARGEST_COORDINATE)
        throw bat_MeshError(file_, TooLarge(reach_));
}

void bat_Part::Check(int triangle, const bat_Corners& corners) const
{
    for (std::size_t k = 0; k < corners.size(); ++k)
    {
        if (std::abs(corners[k]) <= LARGEST_COORDINATE)
            continue;
        if (std::isfinite(corners[k]))
            throw bat_MeshError(file_, TooLarge(std::abs(corners[k])));
        throw bat_MeshError(file_, bat_MeshError::NotFinite(k % 3, corners[k], "triangle",
                                                            static_cast<std::size_t>(triangle)));
    }
}

void bat_Part::Plant(gsl_TriOctree::OctreeNodeType type, int depth, bat_Watcher& watcher)
{
    tree_ = cow_CountedHld<gsl_TriOctree>(new gsl_TriOctree(box_, cow_String(file_.c_str()), type, depth));
    gsl_TriOctreeNode& root = *tree_->Root();
    outside_ = 0;
    gsl_Point p[3];
    bat_Task task(watcher, triangles_.Length());
    for (int i = 0; i < Count(); ++i, task.Step())
    {
        Points(i, p[0], p[1], p[2]);
        outside_ += !root.Add(p[0], p[1], p[2], i);
    }
}
