#pragma once

#include <annC_OrderTree.h>
#include <annC_PairStringAnnotation.h>

/// A doubly linked list of named annotations, which also tells positions in logarithmic time. It owns its
/// nodes; a copy has nodes of its own, which share the annotations.
class OXU_EXPORT annC_ListPairStringAnnotation
{
public:
    /// An entry, at an address that stays until it is removed.
    class Node : private annC_OrderLink
    {
    public:
        annC_PairStringAnnotation pair;
        int id = 0; ///< of the list's owner

    private:
        friend class annC_ListPairStringAnnotation;

        Node* next_ = nullptr;
        Node* previous_ = nullptr;
    };

    annC_ListPairStringAnnotation() = default;
    annC_ListPairStringAnnotation(const annC_ListPairStringAnnotation& other);
    annC_ListPairStringAnnotation& operator=(const annC_ListPairStringAnnotation& other);
    ~annC_ListPairStringAnnotation() { Clear(); }

    /// A new node before `at`; for null at the end.
    Node* InsertBefore(Node* at, const annC_PairStringAnnotation& pair, int id);
    /// A new node behind `at`; for null at the front.
    Node* InsertAfter(Node* at, const annC_PairStringAnnotation& pair, int id);
    // Nothing changes when the two are one.
    void MoveBefore(Node* node, Node* at) noexcept;
    void MoveAfter(Node* node, Node* at) noexcept;
    /// Deletes the node.
    void Remove(Node* node) noexcept;
    void Clear() noexcept;

    // Null when there is none.
    Node* GetFirst() const noexcept { return first_; }
    Node* GetLast() const noexcept { return last_; }
    static Node* GetNext(const Node* node) noexcept { return node->next_; }
    static Node* GetPrevious(const Node* node) noexcept { return node->previous_; }
    Node* At(unsigned index) const noexcept { return static_cast<Node*>(order_.At(index)); }
    unsigned IndexOf(const Node* node) const noexcept { return order_.IndexOf(*node); }
    unsigned Size() const noexcept { return order_.Size(); }

private:
    void Link(Node* node, Node* before) noexcept;
    void Unlink(Node* node) noexcept;

    Node* first_ = nullptr;
    Node* last_ = nullptr;
    annC_OrderTree order_;
};
