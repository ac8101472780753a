#include <annC_MapString2AnnotationCowImpl.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <cow_Map.h>
#include <functional>
#include <nex_PrimException.h>
#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuAnn.m/src/annC_MapString2AnnotationCowImpl";
constexpr const char* NOT_ONE = "no annotation, or more than one, is called %s";
}

annC_MapString2AnnotationCowImpl::annC_MapString2AnnotationCowImpl(
    const annC_MapString2AnnotationCowImpl& other)
    : list_(other.list_), nextId_(other.nextId_)
{
    Reserve(Size());
    for (Node* node = list_.GetFirst(); node != nullptr; node = list_.GetNext(node))
        Enter(node);
}

annC_MapString2AnnotationCowImpl::annC_MapString2AnnotationCowImpl(const cls_ReadVisitor& reader,
                                                                   const cls_FieldHandle& field)
{
    cow_List<cow_String> names;
    cow_List<annC_AnnotationCow> annotations;
    reader.ReadSharedMap(field, names, annotations);
    Reserve(static_cast<unsigned>(names.Length()));
    for (int i = 0; i < names.Length(); ++i)
    {
        const cow_String& name = names.Get(i);
        if (annotations.Get(i).IsNull() || IsMember(name))
            nex_Raise(nex_PrimException(oxu_FormatMessage(NOT_ONE, name)), SOURCE, __LINE__);
        Enter(list_.InsertBefore(nullptr, {name, annotations.Get(i)}, nextId_++));
    }
}

void annC_MapString2AnnotationCowImpl::PushFront(const cow_String& name, const annC_AnnotationCow& annotation)
{
    Reserve(Size() + 1);
    Node* node = list_.InsertAfter(nullptr, {name, annotation}, nextId_++);
    // The former one goes when nothing can go wrong any more.
    if (Node* former = NodeOf(name); former != nullptr)
        Drop(former);
    Enter(node);
}

bool annC_MapString2AnnotationCowImpl::ChangeKey(const cow_String& from, const cow_String& to)
{
    Node* node = NodeOf(from);
    if (node == nullptr)
        return false;
    if (node->pair.name == to)
        return true;
    // `to` may be the text in the node that goes, so that node goes last.
    Node* replaced = NodeOf(to);
    byName_.Remove(from.Hash(), node);
    node->pair.name = to;
    byName_.Add(to.Hash(), node);
    if (replaced != nullptr)
        Drop(replaced);
    return true;
}

bool annC_MapString2AnnotationCowImpl::MoveBefore(const cow_String& name, const cow_String& other)
{
    Node* node = NodeOf(name);
    Node* at = NodeOf(other);
    if (node == nullptr || at == nullptr)
        return false;
    list_.MoveBefore(node, at);
    return true;
}

bool annC_MapString2AnnotationCowImpl::MoveAfter(const cow_String& name, const cow_String& other)
{
    Node* node = NodeOf(name);
    Node* at = NodeOf(other);
    if (node == nullptr || at == nullptr)
        return false;
    list_.MoveAfter(node, at);
    return true;
}

bool annC_MapString2AnnotationCowImpl::Remove(const cow_String& name)
{
    Node* node = NodeOf(name);
    if (node == nullptr)
        return false;
    Drop(node);
    return true;
}

void annC_MapString2AnnotationCowImpl::Clear() noexcept
{
    byName_.Clear();
    byId_.Clear();
    list_.Clear();
}

annC_MapString2AnnotationCowImpl* annC_MapString2AnnotationCowImpl::EmptySuccessor() const
{
    auto* successor = new annC_MapString2AnnotationCowImpl;
    successor->nextId_ = nextId_;
    return successor;
}

int annC_MapString2AnnotationCowImpl::GetId(const cow_String& name) const
{
    const Node* node = NodeOf(name);
    return node != nullptr ? node->id : -1;
}

const cow_String& annC_MapString2AnnotationCowImpl::GetKey(unsigned index) const
{
    const Node* node = list_.At(index);
    if (node == nullptr)
        nex_RaiseRange(index, Size());
    return node->pair.name;
}

int annC_MapString2AnnotationCowImpl::IndexOf(const cow_String& name) const
{
    const Node* node = NodeOf(name);
    return node != nullptr ? static_cast<int>(list_.IndexOf(node)) : -1;
}

cow_List<cow_String> annC_MapString2AnnotationCowImpl::Keys() const
{
    cow_List<cow_String> names;
    names.Reserve(static_cast<int>(Size()));
    for (const Node* node = list_.GetFirst(); node != nullptr; node = list_.GetNext(node))
        names.Append(node->pair.name);
    return names;
}

annC_Annotation* annC_MapString2AnnotationCowImpl::Get(int id)
{
    return Taken(NodeOf(id));
}

annC_Annotation* annC_MapString2AnnotationCowImpl::Get(const cow_String& name)
{
    return Taken(NodeOf(name));
}

const annC_Annotation* annC_MapString2AnnotationCowImpl::ConstGet(int id) const
{
    return Seen(NodeOf(id));
}

const annC_Annotation* annC_MapString2AnnotationCowImpl::ConstGet(const cow_String& name) const
{
    return Seen(NodeOf(name));
}

const annC_Annotation* annC_MapString2AnnotationCowImpl::ConstGetAt(unsigned index) const
{
    return Seen(list_.At(index));
}

const cow_String* annC_MapString2AnnotationCowImpl::GetNext(const cow_String& name) const
{
    const Node* node = NodeOf(name);
    return node != nullptr ? NameOf(list_.GetNext(node)) : nullptr;
}

const cow_String* annC_MapString2AnnotationCowImpl::GetPrevious(const cow_String& name) const
{
    const Node* node = NodeOf(name);
    return node != nullptr ? NameOf(list_.GetPrevious(node)) : nullptr;
}

void annC_MapString2AnnotationCowImpl::DBWrite(const cls_WriteVisitor& writer,
                                               const cls_FieldHandle& field) const
{
    cow_Map<cow_String, annC_AnnotationCow> entries;
    entries.Reserve(static_cast<int>(Size()));
    for (const Node* node = list_.GetFirst(); node != nullptr; node = list_.GetNext(node))
        entries.Insert(node->pair.name, node->pair.annotation);
    writer.WriteSharedMap(field, entries);
}

annC_MapString2AnnotationCowImpl::Node* annC_MapString2AnnotationCowImpl::NodeOf(const cow_String& name) const
{
    return byName_.Find(name.Hash(), [&name](const Node* node) { return node->pair.name == name; });
}

annC_MapString2AnnotationCowImpl::Node* annC_MapString2AnnotationCowImpl::NodeOf(int id) const
{
    return byId_.Find(std::hash<int>()(id), [id](const Node* node) { return node->id == id; });
}

const annC_Annotation* annC_MapString2AnnotationCowImpl::Seen(const Node* node)
{
    return node != nullptr ? node->pair.annotation.AsPtr() : nullptr;
}

annC_Annotation* annC_MapString2AnnotationCowImpl::Taken(Node* node)
{
    return node != nullptr ? &node->pair.annotation.Get() : nullptr;
}

void annC_MapString2AnnotationCowImpl::Reserve(unsigned count)
{
    byName_.Reserve(count);
    byId_.Reserve(count);
}

void annC_MapString2AnnotationCowImpl::Enter(Node* node) noexcept
{
    byName_.Add(node->pair.name.Hash(), node);
    byId_.Add(std::hash<int>()(node->id), node);
}

void annC_MapString2AnnotationCowImpl::Drop(Node* node) noexcept
{
    byName_.Remove(node->pair.name.Hash(), node);
    byId_.Remove(std::hash<int>()(node->id), node);
    list_.Remove(node);
}
