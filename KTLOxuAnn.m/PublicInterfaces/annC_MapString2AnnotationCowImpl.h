#pragma once

#include <annC_ListPairStringAnnotation.h>
#include <cow_HashTable.h>
#include <cow_List.h>

class cls_ReadVisitor;
class cls_WriteVisitor;
struct cls_FieldHandle;

/// Annotations by name in the order in which they are stacked, the first in front. Every entry has an integer
/// identifier besides its position, counted from 0 and never used again; it stays through moves and renaming.
///
/// Names and identifiers are found in constant time on the average, positions in logarithmic time. A copy
/// shares the annotations. Null, false, -1: there is no such entry, and nothing was done.
class OXU_EXPORT annC_MapString2AnnotationCowImpl
{
public:
    annC_MapString2AnnotationCowImpl() = default;
    annC_MapString2AnnotationCowImpl(const annC_MapString2AnnotationCowImpl& other);
    /// Reads the entries in their order; a name without an annotation, or with a second one, raises
    /// nex_PrimException.
    annC_MapString2AnnotationCowImpl(const cls_ReadVisitor& reader, const cls_FieldHandle& field);
    annC_MapString2AnnotationCowImpl& operator=(const annC_MapString2AnnotationCowImpl&) = delete;

    /// A new entry in front of all; one of that name goes. The annotation must not be null.
    void PushFront(const cow_String& name, const annC_AnnotationCow& annotation);
    /// Renames an entry, in its place; another one called `to` goes.
    bool ChangeKey(const cow_String& from, const cow_String& to);
    bool MoveBefore(const cow_String& name, const cow_String& other);
    bool MoveAfter(const cow_String& name, const cow_String& other);
    bool Remove(const cow_String& name);
    void Clear() noexcept;
    /// A new map without entries whose identifiers go on from this one's; the caller owns it.
    annC_MapString2AnnotationCowImpl* EmptySuccessor() const;

    bool IsEmpty() const { return Size() == 0; }
    unsigned Size() const { return list_.Size(); }
    bool IsMember(int id) const { return NodeOf(id) != nullptr; }
    bool IsMember(const cow_String& name) const { return NodeOf(name) != nullptr; }
    int GetId(const cow_String& name) const;
    /// The name at that position; an index that is not below Size() raises nex_RangeException.
    const cow_String& GetKey(unsigned index) const;
    int IndexOf(const cow_String& name) const;
    cow_List<cow_String> Keys() const;
    /// For writing: an annotation that is shared is cloned.
    annC_Annotation* Get(int id);
    annC_Annotation* Get(const cow_String& name);
    const annC_Annotation* ConstGet(int id) const;
    const annC_Annotation* ConstGet(const cow_String& name) const;
    const annC_Annotation* ConstGetAt(unsigned index) const;
    // The names; null when there is none.
    const cow_String* GetFirst() const { return NameOf(list_.GetFirst()); }
    const cow_String* GetLast() const { return NameOf(list_.GetLast()); }
    const cow_String* GetNext(const cow_String& name) const;
    const cow_String* GetPrevious(const cow_String& name) const;

    /// Writes the entries in their order.
    void DBWrite(const cls_WriteVisitor& writer, const cls_FieldHandle& field) const;

private:
    using Node = annC_ListPairStringAnnotation::Node;

    Node* NodeOf(const cow_String& name) const;
    Node* NodeOf(int id) const;
    static const cow_String* NameOf(const Node* node) { return node != nullptr ? &node->pair.name : nullptr; }
    static const annC_Annotation* Seen(const Node* node);
    static annC_Annotation* Taken(Node* node);
    /// Makes room in the indexes for so many entries, so that Enter cannot throw until then.
    void Reserve(unsigned count);
    /// Enters a node of the list into both indexes.
    void Enter(Node* node) noexcept;
    /// Deletes a node that is in both indexes.
    void Drop(Node* node) noexcept;

    annC_ListPairStringAnnotation list_;
    cow_HashTable<Node*, nullptr> byName_;
    cow_HashTable<Node*, nullptr> byId_;
    int nextId_ = 0;
};
