#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <mdl_Repository.h>
#include <memory>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 507;

void Free(void* body)
{
    delete static_cast<mdl_Repository*>(body);
}
}

constexpr auto mdl_Repository::Fields()
{
    return cls_Fields(cls_Field{"m_name", &mdl_Repository::m_name},
                      cls_Field{"m_objects", &mdl_Repository::m_objects});
}

void mdl_Repository::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("mdl_Repository", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<mdl_Repository>::Instance(), mdl_Extension::TypeId());
    Fields().Declare(meta);
    meta.AddDtor(&Free);
}

mdl_Repository::mdl_Repository(const cls_ReadVisitor& reader)
    : mdl_Extension(reader.BaseReader()), uid_(reader.Uid())
{
    Fields().Read(reader, *this);
}

mdl_Repository* mdl_Repository::Copy() const
{
    return new mdl_Repository(*this);
}

unsigned mdl_Repository::DynTypeId() const
{
    return TypeId();
}

void mdl_Repository::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    mdl_Extension::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}

void mdl_Repository::NewUid()
{
    uid_ = cls_Uid();
    mdl_Extension::NewUid();
}

mdl_Extension* mdl_Repository::Get(const cow_String& key)
{
    cow_COW<mdl_Extension>* handle = m_objects.FindForWrite(key);
    return handle != nullptr && !handle->IsNull() ? &handle->Get() : nullptr;
}

const mdl_Extension* mdl_Repository::ConstGet(const cow_String& key) const
{
    const cow_COW<mdl_Extension>* handle = m_objects.Find(key);
    return handle != nullptr ? handle->AsPtr() : nullptr;
}

bool mdl_Repository::Insert(const cow_String& key, mdl_Extension* owned)
{
    if (owned == nullptr)
        return false;
    m_objects.Insert(key, cow_COW<mdl_Extension>(owned));
    return true;
}

bool mdl_Repository::Remove(const cow_String& key)
{
    return m_objects.Remove(key);
}

bool mdl_Repository::ChangeKey(const cow_String& from, const cow_String& to)
{
    if (!m_objects.IsMember(from))
        return false;
    if (from == to)
        return true;
    cow_Map<cow_String, cow_COW<mdl_Extension>> renamed;
    renamed.Reserve(m_objects.Length());
    for (const auto& [key, object] : m_objects)
        if (key != to)
            renamed.Insert(key == from ? to : key, object);
    m_objects = renamed;
    return true;
}
