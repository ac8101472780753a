#include <gsl_ProceedClock.h>
#include <gsl_SearchTree.h>

void gsl_SearchTree::Begin(const gsl_TriOctreeNode& root)
{
    // A node and those above it may have come by their contents with the same triangle: then they share a
    // stamp.
    if (stamp_ != root.Stamp() || cells_.front().node != &root || ++search_ == 0)
    {
        stamp_ = 0;
        cells_ = {MakeCell(root, 0)};
        parts_.Clear(static_cast<std::size_t>(root.TriangleCount()));
        search_ = 1;
        stamp_ = root.Stamp();
    }
    parts_.BeginSearch(search_);
    CellAt(Root()).box = BoxOf(root);
}

gsl_SearchTree::Cell gsl_SearchTree::MakeCell(const gsl_TriOctreeNode& node, int generation)
{
    Cell cell;
    cell.node = &node;
    cell.generation = generation;
    cell.kind = node.TriangleCount() > GROUP_SIZE ? Kind::WHOLE : Kind::SUBTREE;
    return cell;
}

gsl_Extent gsl_SearchTree::BoxOf(const gsl_TriOctreeNode& node) const
{
    return gsl_Extent(node.Box(), source_.Transform());
}

bool gsl_SearchTree::ListCounts(const gsl_TriOctreeNode& node) const
{
    return !node.Triangles().IsEmpty() && !(node.Box().Size() < limits_.leastSize);
}

int gsl_SearchTree::Settle(int group, gsl_ProceedClock& clock)
{
    Cell& cell = CellAt(group);
    if (cell.first == NONE)
    {
        gathered_.clear();
        GatherFrom(*cell.node, cell.generation, cell.kind == Kind::SUBTREE);
        cell.first = parts_.MakeGroup(gathered_, source_, clock);
    }
    else if (cell.search != search_ && !parts_.FetchGroup(cell.first, source_, clock))
    {
        return group;
    }
    if (cell.first == NONE)
    {
        return group;
    }
    cell.search = search_;
    return cell.first;
}

void gsl_SearchTree::GatherFrom(const gsl_TriOctreeNode& node, int generation, bool below)
{
    if (ListCounts(node))
    {
        gathered_.insert(gathered_.end(), node.Triangles().begin(), node.Triangles().end());
    }
    if (!below || !node.IsDivided() || generation + 1 >= limits_.generations)
    {
        return;
    }
    for (int slot = 0; slot < node.GetChildCount(); ++slot)
    {
        if (!node.IsEmpty(slot))
        {
            GatherFrom(*node.Child(slot), generation + 1, below);
        }
    }
}

void gsl_SearchTree::OpenCell(int node)
{
    if (CellAt(node).first == NONE)
    {
        MakeChildren(node);
    }
    Cell& cell = CellAt(node);
    if (cell.search != search_)
    {
        for (int i = cell.first; i < cell.first + cell.children; ++i)
        {
            Cell& child = CellAt(CellNode(i));
            child.box = BoxOf(*child.node);
        }
        cell.search = search_;
    }
}

void gsl_SearchTree::MakeChildren(int node)
{
    const gsl_TriOctreeNode& from = *CellAt(node).node;
    const int generation = CellAt(node).generation;
    const std::size_t first = cells_.size();
    if (ListCounts(from))
    {
        cells_.push_back(MakeCell(from, generation));
        cells_.back().kind = Kind::LIST;
    }
    if (generation + 1 < limits_.generations)
    {
        for (int slot = 0; slot < from.GetChildCount(); ++slot)
        {
            if (!from.IsEmpty(slot))
            {
                cells_.push_back(MakeCell(*from.Child(slot), generation + 1));
            }
        }
    }
    CellAt(node).first = static_cast<std::int32_t>(first);
    CellAt(node).children = static_cast<std::int32_t>(cells_.size() - first);
}
