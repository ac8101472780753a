#include <algorithm>
#include <atomic>
#include <gsl_Matrix.h>
#include <gsl_OctreeSplit.h>
#include <gsl_TracePrint.h>
#include <gsl_TriOctreeNode.h>
#include <nex_Raise.h>

namespace
{
// Halving leaves some boxes as they are: a flat one across its plane, any when its corners are neighbouring
// numbers. From this level on such a box is not repeated, so that no depth asked for ends in a stack
// overflow.
constexpr int LAST_REPEATED_LEVEL = 64;

std::uint64_t FreshStamp() noexcept
{
    static std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

gsl_TriOctreeNode* MakeNode(const gsl_BBox& box, int level, int index, gsl_TriOctreeNode* parent)
{
    return new gsl_TriOctreeNode(box, level, index, parent);
}
}

gsl_TriOctreeNode::gsl_TriOctreeNode(const gsl_BBox& box, int level, int index, gsl_TriOctreeNode* parent)
    : box_(box), level_(level), index_(index), parent_(parent), stamp_(FreshStamp())
{}

gsl_TriOctreeNode::~gsl_TriOctreeNode() = default;

int gsl_TriOctreeNode::GetChildCount() const
{
    return gsl_OctreeSplit::OCTANTS;
}

void gsl_TriOctreeNode::Print(FILE* stream) const
{
    double low[3];
    double high[3];
    box_.GetExtent(low, high);
    gsl_TracePrint(stream, " Level: %d\n", {level_});
    gsl_TracePrint(stream, "  Index: %d, # of triangles: %d\n", {index_, triangles_.Length()});
    gsl_TracePrint(stream, "  Low(%lf, %lf, %lf)\n", {low[0], low[1], low[2]});
    gsl_TracePrint(stream, "  High(%lf, %lf, %lf)\n", {high[0], high[1], high[2]});
    for (int slot = 0; IsDivided() && slot < GetChildCount(); ++slot)
    {
        if (At(slot) && !At(slot)->triangles_.IsEmpty())
        {
            At(slot)->Print(stream);
        }
    }
}

void gsl_TriOctreeNode::BuildOctree(const gsl_BBox& box, int maxDepth)
{
    Divide(box, maxDepth, &MakeNode);
}

void gsl_TriOctreeNode::Divide(const gsl_BBox& box, int maxDepth, ChildMaker makeChild)
{
    if (maxDepth <= level_)
    {
        return;
    }
    const int slots = GetChildCount();
    if (IsDivided())
    {
        NoteChange(triangles_.Length() - count_);
    }
    children_ = std::make_unique<std::unique_ptr<gsl_TriOctreeNode>[]>(static_cast<std::size_t>(slots));
    ordinary_ = true;
    maxDepth_ = maxDepth;
    makeChild_ = makeChild;
    if (gsl_OctreeSplit::IsSame(box, box_))
    {
        return; // children are made when they are needed; those of another box are made at once
    }
    const gsl_OctreeSplit split(box);
    // This node is divided, so Build owns the child. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    for (int slot = 0; slot < std::min(slots, gsl_OctreeSplit::SLOTS); ++slot)
    {
        Build(slot, makeChild(split.SlotBox(slot), level_ + 1, slot, this), maxDepth);
    }
}

void gsl_TriOctreeNode::Build(int i, gsl_TriOctreeNode* child, int maxDepth)
{
    if (child == nullptr || !IsDivided())
    {
        return;
    }
    if (i < 0 || i >= GetChildCount())
    {
        nex_RaiseRange(i, GetChildCount(), "KTLOxuGsl.m/src/gsl_TriOctreeNode", __LINE__);
    }
    const int before = At(i) ? At(i)->count_ : 0;
    At(i).reset(child);
    child->parent_ = this;
    ordinary_ = ordinary_ && i < gsl_OctreeSplit::SLOTS &&
                gsl_OctreeSplit::IsSame(gsl_OctreeSplit(box_).SlotBox(i), child->box_);
    if (before != 0 || child->count_ != 0)
    {
        NoteChange(child->count_ - before);
    }
    child->BuildOctree(child->box_, maxDepth);
}

bool gsl_TriOctreeNode::Add(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c, int triangle)
{
    if (!Contains(box_, a) || !Contains(box_, b) || !Contains(box_, c))
    {
        return false;
    }
    const double low[3] = {std::min({a.X(), b.X(), c.X()}), std::min({a.Y(), b.Y(), c.Y()}),
                           std::min({a.Z(), b.Z(), c.Z()})};
    const double high[3] = {std::max({a.X(), b.X(), c.X()}), std::max({a.Y(), b.Y(), c.Y()}),
                            std::max({a.Z(), b.Z(), c.Z()})};
    Place(low, high, triangle, FreshStamp());
    if (parent_ != nullptr)
    {
        parent_->NoteChange(1);
    }
    return true;
}

void gsl_TriOctreeNode::Place(const double low[3], const double high[3], int triangle, std::uint64_t stamp)
{
    const int slot = IsDivided() ? FirstSlotHolding(low, high) : -1;
    gsl_TriOctreeNode* child = slot < 0 ? nullptr : At(slot).get();
    if (slot >= 0 && child == nullptr)
    {
        child = MakeChild(slot);
    }
    if (child != nullptr)
    {
        child->Place(low, high, triangle, stamp);
    }
    else
    {
        triangles_.Append(triangle);
    }
    ++count_;
    stamp_ = stamp;
}

int gsl_TriOctreeNode::FirstSlotHolding(const double low[3], const double high[3]) const
{
    const int slots = GetChildCount();
    const gsl_OctreeSplit split(box_);
    if (ordinary_)
    {
        return split.FirstSlotHolding(low, high, slots);
    }
    const gsl_Point lowest(low);
    const gsl_Point highest(high);
    for (int slot = 0; slot < slots; ++slot)
    {
        const gsl_TriOctreeNode* child = At(slot).get();
        if (child == nullptr && slot >= gsl_OctreeSplit::SLOTS)
        {
            continue;
        }
        const gsl_BBox box = child != nullptr ? child->box_ : split.SlotBox(slot);
        if (Contains(box, lowest) && Contains(box, highest))
        {
            return slot;
        }
    }
    return -1;
}

gsl_TriOctreeNode* gsl_TriOctreeNode::MakeChild(int slot)
{
    const gsl_BBox box = gsl_OctreeSplit(box_).SlotBox(slot);
    if (level_ >= LAST_REPEATED_LEVEL && gsl_OctreeSplit::IsSame(box, box_))
    {
        return nullptr;
    }
    Build(slot, makeChild_(box, level_ + 1, slot, this), maxDepth_);
    return At(slot).get();
}

void gsl_TriOctreeNode::NoteChange(int added) noexcept
{
    const std::uint64_t stamp = FreshStamp();
    for (gsl_TriOctreeNode* node = this; node != nullptr; node = node->parent_)
    {
        node->count_ += added;
        node->stamp_ = stamp;
    }
}

bool gsl_TriOctreeNode::IsEmpty(int slot) const noexcept
{
    const gsl_TriOctreeNode* child = Child(slot);
    return child == nullptr || child->IsEmpty();
}

const gsl_TriOctreeNode* gsl_TriOctreeNode::Child(int slot) const noexcept
{
    return IsDivided() && slot >= 0 && slot < GetChildCount() ? At(slot).get() : nullptr;
}

gsl_BBox gsl_TriOctreeNode::TransformBBox(const gsl_Matrix& transform) const
{
    gsl_BBox box = box_;
    box.Transform(transform);
    return box;
}
