#include <annC_ListPairStringAnnotation.h>

annC_ListPairStringAnnotation::annC_ListPairStringAnnotation(const annC_ListPairStringAnnotation& other)
    : annC_ListPairStringAnnotation()
{
    for (const Node* node = other.first_; node != nullptr; node = node->next_)
        InsertBefore(nullptr, node->pair, node->id);
}

annC_ListPairStringAnnotation&
annC_ListPairStringAnnotation::operator=(const annC_ListPairStringAnnotation& other)
{
    if (this == &other)
        return *this;
    annC_ListPairStringAnnotation copy(other);
    Clear();
    while (Node* node = copy.first_)
    {
        copy.Unlink(node);
        Link(node, nullptr);
    }
    return *this;
}

annC_ListPairStringAnnotation::Node*
annC_ListPairStringAnnotation::InsertBefore(Node* at, const annC_PairStringAnnotation& pair, int id)
{
    Node* node = new Node;
    node->pair = pair;
    node->id = id;
    Link(node, at);
    return node;
}

annC_ListPairStringAnnotation::Node*
annC_ListPairStringAnnotation::InsertAfter(Node* at, const annC_PairStringAnnotation& pair, int id)
{
    return InsertBefore(at != nullptr ? at->next_ : first_, pair, id);
}

void annC_ListPairStringAnnotation::MoveBefore(Node* node, Node* at) noexcept
{
    if (node == at)
        return;
    Unlink(node);
    Link(node, at);
}

void annC_ListPairStringAnnotation::MoveAfter(Node* node, Node* at) noexcept
{
    if (node == at)
        return;
    Unlink(node);
    Link(node, at->next_);
}

void annC_ListPairStringAnnotation::Remove(Node* node) noexcept
{
    Unlink(node);
    delete node;
}

void annC_ListPairStringAnnotation::Clear() noexcept
{
    order_.Clear();
    while (first_ != nullptr)
    {
        Node* node = first_;
        first_ = node->next_;
        delete node;
    }
    last_ = nullptr;
}

void annC_ListPairStringAnnotation::Link(Node* node, Node* before) noexcept
{
    Node* after = before != nullptr ? before->previous_ : last_;
    node->next_ = before;
    node->previous_ = after;
    (after != nullptr ? after->next_ : first_) = node;
    (before != nullptr ? before->previous_ : last_) = node;
    order_.InsertBefore(*node, before);
}

void annC_ListPairStringAnnotation::Unlink(Node* node) noexcept
{
    (node->previous_ != nullptr ? node->previous_->next_ : first_) = node->next_;
    (node->next_ != nullptr ? node->next_->previous_ : last_) = node->previous_;
    order_.Remove(*node);
}
