#pragma once

#include <oxu_Export.h>

/// What an element of an annC_OrderTree carries; the tree changes it.
struct annC_OrderLink
{
    annC_OrderLink* parent = nullptr;
    annC_OrderLink* left = nullptr;
    annC_OrderLink* right = nullptr;
    unsigned count = 1; ///< elements in the subtree
    unsigned priority = 0;
};

/// Tells positions in a sequence that changes: an order-statistic tree over links that their owner keeps,
/// without keys, balanced by random priorities (a treap; Seidel and Aragon, "Randomized search trees",
/// Algorithmica 16, 1996). Every operation takes logarithmic time on the average. It owns nothing.
class OXU_EXPORT annC_OrderTree
{
public:
    annC_OrderTree() = default;
    annC_OrderTree(const annC_OrderTree&) = delete;
    annC_OrderTree& operator=(const annC_OrderTree&) = delete;

    /// Puts a fresh link right before `at`; at the end for null.
    void InsertBefore(annC_OrderLink& link, annC_OrderLink* at) noexcept;
    /// Takes a link out, which is fresh again.
    void Remove(annC_OrderLink& link) noexcept;
    void Clear() noexcept { root_ = nullptr; }

    unsigned Size() const noexcept { return root_ != nullptr ? root_->count : 0; }
    /// The position of a link of this tree, from 0.
    unsigned IndexOf(const annC_OrderLink& link) const noexcept;
    /// Null for an index that is not below Size().
    annC_OrderLink* At(unsigned index) const noexcept;

private:
    void Lift(annC_OrderLink& link) noexcept;
    annC_OrderLink*& PlaceOf(annC_OrderLink& link) noexcept;

    annC_OrderLink* root_ = nullptr;
    unsigned random_ = 2463534242u;
};
