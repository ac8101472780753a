#pragma once

#include <cow_String.h>
#include <cstdio>
#include <gsl_TriOctreeNode.h>
#include <memory>
#include <oxu_Export.h>

class gsl_BBox;

/// Spatial tree over a set of triangles, which stays with the caller: the tree stores their indices.
///
/// Made empty over the box of the set; every triangle is then added to Root() with its corners and its index.
/// Held by callers through cow_CountedHld<gsl_TriOctree>. Built by one thread, read by any number.
class OXU_EXPORT gsl_TriOctree
{
public:
    /// The class of the nodes.
    enum OctreeNodeType {
        gsl_OCTREE = 0,    ///< gsl_TriOctreeNode
        gsl_MODOCTREE = 1, ///< gsl_ModOctreeNode
    };

    /// id is a name for Print, maxDepth the number of levels: with 1 the root is a leaf.
    gsl_TriOctree(const gsl_BBox& box, const cow_String& id, OctreeNodeType type, int maxDepth);

    gsl_TriOctreeNode* Root() noexcept { return root_.get(); }
    const gsl_TriOctreeNode* Root() const noexcept { return root_.get(); }
    const cow_String& Id() const noexcept { return id_; }
    int MaxDepth() const noexcept { return maxDepth_; }
    /// The root's.
    int GetChildCount() const { return root_->GetChildCount(); }

    /// Id and depth, then the root's Print.
    void Print(FILE* stream) const;

private:
    int maxDepth_;
    std::unique_ptr<gsl_TriOctreeNode> root_;
    cow_String id_;
};
