#pragma once

#include <cstdint>
#include <gsl_CornerSource.h>
#include <gsl_Extent.h>
#include <gsl_PartTree.h>
#include <gsl_TriOctreeNode.h>
#include <vector>

class gsl_ProceedClock;

/// One octree as a search walks it: boxes within boxes down to a handful of triangles, each made when it is
/// first asked for.
///
/// Above stand cells: the octree's own nodes with their boxes, all that lives at or below the node counted
/// in. Where few triangles are left, and for the own list of a node that has children too, the triangles are
/// gathered into a group of gsl_PartTree, so that long lists have an order of their own inside. A node is
/// named by a number: cells by a negative one, parts by gsl_PartTree's. The shape is kept from search to
/// search, by the root node and its stamp.
class gsl_SearchTree
{
public:
    /// What a search leaves out.
    struct Limits
    {
        int generations = 1;    ///< how many levels are looked at, the root counted; at least 1
        double leastSize = 0.0; ///< own lists of nodes whose box has a shorter diagonal are left out
    };

    gsl_SearchTree(gsl_CornerSource& source, const Limits& limits) : source_(source), limits_(limits) {}

    /// Begins a search: forgets corners and boxes, and the shape too when the octree is not the same as
    /// before.
    void Begin(const gsl_TriOctreeNode& root);

    static constexpr int Root() noexcept { return CellNode(0); }
    static constexpr bool IsCell(int node) noexcept { return node < 0; }
    /// A cell that stands for a group of triangles; Settle gives the group.
    bool IsGroup(int node) const { return IsCell(node) && CellAt(node).kind != Kind::WHOLE; }

    /// A cell's box holds what was added to the octree's node, a part's box its triangles.
    const gsl_Extent& Box(int node) const { return IsCell(node) ? CellAt(node).box : parts_.Box(node); }
    /// How many triangles there are at most, for a cell as the octree counts them.
    int Count(int node) const
    {
        return IsCell(node) ? CellAt(node).node->TriangleCount() : parts_.Count(node);
    }
    bool IsLeaf(int node) const { return !IsCell(node) && parts_.IsLeaf(node); }

    /// A group's part, its corners fetched in this search. The cell itself when the clock ran out.
    int Settle(int group, gsl_ProceedClock& clock);

    /// Makes sure of the children and their boxes in this search; 0 when the clock ran out. REQUIRES: neither
    /// a group nor a leaf.
    int ChildCount(int node, gsl_ProceedClock& clock)
    {
        if (IsCell(node))
        {
            OpenCell(node);
            return CellAt(node).children;
        }
        return parts_.Open(node, clock) ? 2 : 0;
    }
    /// The i-th child. REQUIRES: ChildCount was asked in this search.
    int Child(int node, int i) const
    {
        if (IsCell(node))
        {
            return CellNode(CellAt(node).first + i);
        }
        return i == 0 ? parts_.Lower(node) : parts_.Upper(node);
    }

    gsl_PartTree& Parts() noexcept { return parts_; }
    gsl_CornerSource& Source() noexcept { return source_; }

private:
    // From this size down an octree node is gathered with all that is below it.
    static constexpr int GROUP_SIZE = 128;
    static constexpr std::int32_t NONE = -1;

    enum class Kind : std::uint8_t {
        WHOLE,   // opened into its own list and the node's children
        SUBTREE, // a group: the node with all below it
        LIST,    // a group: the node's own list
    };

    struct Cell
    {
        gsl_Extent box;
        const gsl_TriOctreeNode* node = nullptr;
        std::int32_t first = NONE; // first child cell, or the group's part
        std::int32_t children = 0;
        std::int32_t generation = 0;
        std::uint32_t search = 0; // the search for which the children's boxes, or the group's corners, hold
        Kind kind = Kind::WHOLE;
    };

    static constexpr int CellNode(int cell) noexcept { return -1 - cell; }
    static constexpr std::size_t CellIndex(int node) noexcept
    {
        const int cell = -1 - node;
        return static_cast<std::size_t>(cell);
    }
    const Cell& CellAt(int node) const { return cells_[CellIndex(node)]; }
    Cell& CellAt(int node) { return cells_[CellIndex(node)]; }

    static Cell MakeCell(const gsl_TriOctreeNode& node, int generation);
    gsl_Extent BoxOf(const gsl_TriOctreeNode& node) const;
    bool ListCounts(const gsl_TriOctreeNode& node) const;
    void OpenCell(int node);
    void MakeChildren(int node);
    void GatherFrom(const gsl_TriOctreeNode& node, int generation, bool below);

    gsl_CornerSource& source_;
    Limits limits_;
    std::uint64_t stamp_ = 0; // no octree has this one
    std::uint32_t search_ = 0;
    std::vector<Cell> cells_;
    std::vector<std::int32_t> gathered_;
    gsl_PartTree parts_;
};
