#pragma once

#include <bat_Corners.h>
#include <bat_TriangleMesh.h>
#include <cow_CountedHld.h>
#include <gsl_BBox.h>
#include <gsl_TriOctree.h>
#include <string>
#include <vector>

/// One of the two parts: the triangles of a file, and the octree over them that the search walks.
class bat_Part
{
public:
    /// More than one triangle, or the mesh readers refuse the file; as many as an int can number, or
    /// bat_MeshError.
    bat_Part(std::string file, bat_TriangleMesh mesh);

    /// Plants the tree, an octree of that depth over the part's box. Interruptible.
    void Plant(gsl_TriOctree::OctreeNodeType type, int depth);

    const std::string& File() const { return file_; }
    int Count() const { return static_cast<int>(mesh_.Length()); }
    bat_Corners Corners(int triangle) const
    {
        return bat_Corners(mesh_.Corner(static_cast<std::size_t>(triangle), 0), bat_Corners::extent);
    }
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
    std::string file_;
    bat_TriangleMesh mesh_;
    std::vector<bool> hasNormal_;
    int degenerate_ = 0;
    int outside_ = 0;
    gsl_BBox box_;
    double reach_ = 0.0;
    cow_CountedHld<gsl_TriOctree> tree_;
};
