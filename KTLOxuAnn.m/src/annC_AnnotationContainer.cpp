#include <annC_AnnotationContainer.h>
#include <cls_ClassMetadata.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>

namespace
{
constexpr cls_FieldHandle MAP{0, "m_map"};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void annC_AnnotationContainer::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar
        .Create("annC_AnnotationContainer", TypeId(), LAYOUT_RELEASE,
                cls_TypeAdapter<annC_AnnotationContainer>::Instance(), mdl_Repository::TypeId())
        .AddAttribute(MAP, cls_AttributeType::OBJECT, cls_MapTypeId, cls_CollectionType::MAP_STRING_OBJ);
}

annC_AnnotationContainer::annC_AnnotationContainer(const cls_ReadVisitor& reader)
    : mdl_Repository(reader.BaseReader()), m_map(reader, MAP), uid_(reader.Uid())
{}

annC_AnnotationContainer* annC_AnnotationContainer::Copy() const
{
    return new annC_AnnotationContainer(*this);
}

unsigned annC_AnnotationContainer::DynTypeId() const
{
    return TypeId();
}

void annC_AnnotationContainer::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    mdl_Repository::DBWrite(writer.BaseWriter());
    m_map.DBWrite(writer, MAP);
}

void annC_AnnotationContainer::NewUid()
{
    mdl_Repository::NewUid();
    uid_ = cls_Uid();
}

unsigned annC_AnnotationContainer::Size() const
{
    return m_map.Size();
}

bool annC_AnnotationContainer::Insert(const cow_String& name, annC_Annotation* owned)
{
    return owned != nullptr && Insert(name, annC_AnnotationCow(owned));
}

bool annC_AnnotationContainer::Insert(const cow_String& name, const annC_Annotation& annotation)
{
    return Insert(name, annC_AnnotationCow(annotation));
}

bool annC_AnnotationContainer::Insert(const cow_String& name, const annC_AnnotationCow& annotation)
{
    Remove(name);
    m_map.PushFront(name, annotation);
    changes_.PostInsert(name, 0);
    return true;
}

bool annC_AnnotationContainer::Remove(const cow_String& name)
{
    if (!m_map.Remove(name))
        return false;
    changes_.PostRemove(name);
    return true;
}

bool annC_AnnotationContainer::ChangeKey(const cow_String& from, const cow_String& to)
{
    if (!IsMember(from))
        return false;
    if (from != to)
        Remove(to);
    m_map.ChangeKey(from, to);
    changes_.PostRename(from, to, IndexOf(to));
    return true;
}

bool annC_AnnotationContainer::MoveAfter(const cow_String& name, const cow_String& other)
{
    if (!m_map.MoveAfter(name, other))
        return false;
    PostMove(name);
    return true;
}

bool annC_AnnotationContainer::MoveBefore(const cow_String& name, const cow_String& other)
{
    if (!m_map.MoveBefore(name, other))
        return false;
    PostMove(name);
    return true;
}

bool annC_AnnotationContainer::BringForward(const cow_String& name)
{
    if (!IsMember(name))
        return false;
    const cow_String* before = m_map.GetPrevious(name);
    return before == nullptr || MoveBefore(name, cow_String(*before));
}

bool annC_AnnotationContainer::SendBackward(const cow_String& name)
{
    if (!IsMember(name))
        return false;
    const cow_String* behind = m_map.GetNext(name);
    return behind == nullptr || MoveAfter(name, cow_String(*behind));
}

bool annC_AnnotationContainer::BringToFront(const cow_String& name)
{
    return IsMember(name) && MoveBefore(name, cow_String(*m_map.GetFirst()));
}

bool annC_AnnotationContainer::SendToBack(const cow_String& name)
{
    return IsMember(name) && MoveAfter(name, cow_String(*m_map.GetLast()));
}

void annC_AnnotationContainer::Clear()
{
    m_map.Clear();
    changes_.Restart();
}

annC_Annotation* annC_AnnotationContainer::Get(const cow_String& name)
{
    changes_.PostModify(name);
    return m_map.Get(name);
}

annC_Annotation* annC_AnnotationContainer::Get(unsigned index)
{
    return index < Size() ? Get(m_map.GetKey(index)) : nullptr;
}

void annC_AnnotationContainer::PostMove(const cow_String& name)
{
    changes_.PostRemove(name);
    changes_.PostInsert(name, IndexOf(name));
}
