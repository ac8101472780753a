#include <annC_OrderTree.h>

namespace
{
unsigned Count(const annC_OrderLink* link)
{
    return link != nullptr ? link->count : 0;
}

/// Marsaglia, "Xorshift RNGs", Journal of Statistical Software 8(14), 2003.
unsigned NextRandom(unsigned& state)
{
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
}
}

void annC_OrderTree::InsertBefore(annC_OrderLink& link, annC_OrderLink* at) noexcept
{
    link = annC_OrderLink();
    link.priority = NextRandom(random_);
    // The free place right before `at`: its left one, or the rightmost below that.
    annC_OrderLink* parent = at;
    annC_OrderLink** place = at != nullptr ? &at->left : &root_;
    while (*place != nullptr)
    {
        parent = *place;
        place = &parent->right;
    }
    *place = &link;
    link.parent = parent;
    for (; parent != nullptr; parent = parent->parent)
        ++parent->count;
    while (link.parent != nullptr && link.parent->priority < link.priority)
        Lift(link);
}

void annC_OrderTree::Remove(annC_OrderLink& link) noexcept
{
    while (link.left != nullptr && link.right != nullptr)
        Lift(link.left->priority > link.right->priority ? *link.left : *link.right);
    annC_OrderLink* child = link.left != nullptr ? link.left : link.right;
    PlaceOf(link) = child;
    if (child != nullptr)
        child->parent = link.parent;
    for (annC_OrderLink* above = link.parent; above != nullptr; above = above->parent)
        --above->count;
    link = annC_OrderLink();
}

unsigned annC_OrderTree::IndexOf(const annC_OrderLink& link) const noexcept
{
    unsigned index = Count(link.left);
    for (const annC_OrderLink* at = &link; at->parent != nullptr; at = at->parent)
        if (at->parent->right == at)
            index += Count(at->parent->left) + 1;
    return index;
}

annC_OrderLink* annC_OrderTree::At(unsigned index) const noexcept
{
    annC_OrderLink* at = root_;
    while (at != nullptr)
    {
        const unsigned before = Count(at->left);
        if (index == before)
            return at;
        if (index < before)
            at = at->left;
        else
        {
            index -= before + 1;
            at = at->right;
        }
    }
    return nullptr;
}

/// Rotates the link above its parent.
void annC_OrderTree::Lift(annC_OrderLink& link) noexcept
{
    annC_OrderLink& parent = *link.parent;
    annC_OrderLink*& place = PlaceOf(parent);
    const bool isLeft = parent.left == &link;
    annC_OrderLink*& inner = isLeft ? link.right : link.left;
    (isLeft ? parent.left : parent.right) = inner;
    if (inner != nullptr)
        inner->parent = &parent;
    inner = &parent;
    link.parent = parent.parent;
    parent.parent = &link;
    place = &link;
    link.count = parent.count;
    parent.count = Count(parent.left) + Count(parent.right) + 1;
}

annC_OrderLink*& annC_OrderTree::PlaceOf(annC_OrderLink& link) noexcept
{
    if (link.parent == nullptr)
        return root_;
    return link.parent->left == &link ? link.parent->left : link.parent->right;
}
