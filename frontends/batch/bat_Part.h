#pragma once

#include <bat_Corners.h>
#include <bat_TriangleMesh.h>
#include <bat_TriangleView.h>
#include <bat_Watcher.h>
#include <cow_CountedHld.h>
#include <gsl_BBox.h>
#include <gsl_TriOctree.h>
#include <limits>
#include <string>
#include <vector>

/// A part: the triangles of a file or of a caller's arrays, and the octree over them that a search walks.
///
/// Raises bat_MeshError for coordinates that cannot be computed with. Arrays may change while they are in
/// use; then answers are wrong, or bat_MeshError says what became of a coordinate.
class bat_Part
{
public:
    /// Without its sign: squares of areas, fourth powers of lengths, stay finite.
    static constexpr double LARGEST_COORDINATE = 1e75;
    static constexpr std::size_t MOST_TRIANGLES = std::numeric_limits<int>::max();

    /// More than one triangle, or the mesh readers refuse the file; as many as an int can number, or
    /// bat_MeshError. Interruptible.
    bat_Part(std::string file, bat_TriangleMesh mesh, bat_Watcher& watcher = bat_Watcher::Nobody());
    /// Triangles in place; name stands in messages where the file's name would.
    bat_Part(std::string name, const bat_TriangleView& triangles,
             bat_Watcher& watcher = bat_Watcher::Nobody());
    /// The part in a file, read as a phase of the watcher's job of that share; what is odd about the file is
    /// noted. Raises bat_MeshError, bat_Interrupted.
    static bat_Part Read(const std::string& file, bat_Watcher& watcher, float share);
    bat_Part(bat_Part&&) = default;
    bat_Part& operator=(bat_Part&&) = default;

    /// Plants the tree, an octree of that depth over the part's box. Interruptible.
    void Plant(gsl_TriOctree::OctreeNodeType type, int depth, bat_Watcher& watcher = bat_Watcher::Nobody());

    const std::string& File() const { return file_; }
    int Count() const { return static_cast<int>(triangles_.Length()); }
    bat_Corners Corners(int triangle) const
    {
        const bat_Corners corners = triangles_.Corners(static_cast<std::size_t>(triangle));
        if (triangles_.MayChange())
            Check(triangle, corners);
        return corners;
    }
    /// The same three corners.
    void Points(int triangle, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) const;
    /// As bat_TriangleView has them.
    const double* InARow(std::size_t triangle) const { return triangles_.InARow(triangle); }
    /// Without a normal a triangle is degenerate: the search passes over it.
    bool HasNormal(int triangle) const { return hasNormal_[static_cast<std::size_t>(triangle)]; }
    int Degenerate() const { return degenerate_; }
    /// How many triangles the tree refused because a corner lies outside its box; 0 before planting.
    int Outside() const { return outside_; }

    const gsl_BBox& Box() const { return box_; }
    /// The largest of all coordinates, without sign.
    double Reach() const { return reach_; }
    /// The planted tree's root.
    const gsl_TriOctreeNode& Root() const { return *tree_->Root(); }

private:
    void Measure(bat_Watcher& watcher);
    void Check(int triangle, const bat_Corners& corners) const;

    std::string file_;
    bat_TriangleMesh mesh_; ///< of a file; its numbers stay where they are when the part is moved
    bat_TriangleView triangles_;
    std::vector<bool> hasNormal_;
    int degenerate_ = 0;
    int outside_ = 0;
    gsl_BBox box_;
    double reach_ = 0.0;
    cow_CountedHld<gsl_TriOctree> tree_;
};
