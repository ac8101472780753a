#pragma once

#include <cow_List.h>
#include <cstdint>
#include <cstdio>
#include <gsl_BBox.h>
#include <memory>
#include <oxu_Export.h>

class gsl_Matrix;
class gsl_Point;

/// Node of a gsl_TriOctree: a box, the indices of the triangles that live here, and up to eight children, one
/// an octant of the box.
///
/// A triangle lives at the deepest node whose box holds its three corners, bounds included; one that
/// straddles the planes between the children stays at their parent, one that lies on such a plane goes to the
/// first child that holds it. The octants stand in the slots ix + 2 iy + 4 iz, i = 0 below the centre and 1
/// above. A node makes a child when the first triangle comes to live in it, so memory follows the triangles;
/// an empty slot means an empty child.
///
/// The node stores indices alone: the triangles are the caller's. Trees are built by one thread; once built,
/// any number of threads may read them.
class OXU_EXPORT gsl_TriOctreeNode
{
public:
    /// A leaf until BuildOctree divides it. level is 1 at the root, index the slot in the parent (-1 at the
    /// root).
    gsl_TriOctreeNode(const gsl_BBox& box, int level, int index, gsl_TriOctreeNode* parent);
    gsl_TriOctreeNode(const gsl_TriOctreeNode&) = delete;
    gsl_TriOctreeNode& operator=(const gsl_TriOctreeNode&) = delete;
    virtual ~gsl_TriOctreeNode();

    /// 8: how many slots a divided node of this class has.
    virtual int GetChildCount() const;
    /// Level, index, number of own triangles and box, then every child with triangles of its own. On purpose
    /// a filled child below one without own triangles is not shown.
    virtual void Print(FILE* stream) const;
    /// Builds the empty tree below this node, splitting box at its centre; nothing when maxDepth does not
    /// exceed the level. Children that were there before go, with what they hold.
    virtual void BuildOctree(const gsl_BBox& box, int maxDepth);

    /// Puts child, which this node then owns, into slot i and builds the tree below it over the child's own
    /// box. Nothing when child is null or this node is not divided; the caller then keeps child.
    /// nex_RangeException when there is no slot i.
    void Build(int i, gsl_TriOctreeNode* child, int maxDepth);
    /// Stores a triangle here or below. false, and nothing changed, when a corner lies outside the box.
    [[nodiscard]] bool Add(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c, int triangle);

    /// low <= p <= high on all axes.
    static bool Contains(const gsl_BBox& box, const gsl_Point& p) noexcept { return box.ContainsPoint(p); }
    /// No triangle here or below.
    bool IsEmpty() const noexcept { return count_ == 0; }
    /// No triangle in that slot; true too for a slot that does not exist.
    bool IsEmpty(int slot) const noexcept;

    const gsl_BBox& Box() const noexcept { return box_; }
    int Level() const noexcept { return level_; }
    int Index() const noexcept { return index_; }
    const gsl_TriOctreeNode* Parent() const noexcept { return parent_; }
    /// Null for an empty slot, a slot that does not exist, and on a leaf.
    const gsl_TriOctreeNode* Child(int slot) const noexcept;
    /// BuildOctree has given this node slots.
    bool IsDivided() const noexcept { return children_ != nullptr; }
    /// The triangles that live at this node itself.
    const cow_List<int>& Triangles() const noexcept { return triangles_; }
    /// How many triangles live here and below.
    int TriangleCount() const noexcept { return count_; }
    /// The box of the transformed corners of this node's box.
    gsl_BBox TransformBBox(const gsl_Matrix& transform) const;
    /// Names what this node and those below hold: renewed when that changes, and never the same for two trees
    /// of the process. The nodes that one triangle came through may share theirs.
    std::uint64_t Stamp() const noexcept { return stamp_; }

protected:
    using ChildMaker = gsl_TriOctreeNode* (*)(const gsl_BBox& box, int level, int index,
                                              gsl_TriOctreeNode* parent);

    /// What BuildOctree does, with children of the class that makeChild makes.
    void Divide(const gsl_BBox& box, int maxDepth, ChildMaker makeChild);

private:
    std::unique_ptr<gsl_TriOctreeNode>& At(int slot) const
    {
        return children_[static_cast<std::size_t>(slot)];
    }
    /// Add, for a triangle that this node's box is known to hold.
    void Place(const double low[3], const double high[3], int triangle, std::uint64_t stamp);
    int FirstSlotHolding(const double low[3], const double high[3]) const;
    /// Makes the child of an empty slot; null when, deep down, it would have this node's own box again.
    gsl_TriOctreeNode* MakeChild(int slot);
    /// Notes that triangles were added at or below this node, here and in everything above.
    void NoteChange(int added) noexcept;

    std::unique_ptr<std::unique_ptr<gsl_TriOctreeNode>[]> children_;
    cow_List<int> triangles_;
    gsl_BBox box_;
    int level_;
    int index_;
    gsl_TriOctreeNode* parent_;
    int maxDepth_ = 0;
    int count_ = 0;
    bool ordinary_ = true; // every child that there is has its slot's box
    std::uint64_t stamp_;
    ChildMaker makeChild_ = nullptr;
};
