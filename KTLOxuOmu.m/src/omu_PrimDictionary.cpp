#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimString.h>
#include <omu_PrimVisitor.h>
#include <string>
#include <typeinfo>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { ENTRIES };
constexpr cls_FieldHandle FIELDS[] = {{ENTRIES, "m_map"}};
constexpr unsigned LAYOUT_RELEASE = 800;

cow_String KeyText(const cow_String& key)
{
    return omu_PrimString::Quoted(key);
}

cow_String KeyText(int key)
{
    return cow_String(std::to_string(key));
}
}

template <class K>
void omu_PrimDictionary<K>::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create(
        HAS_TEXT_KEYS ? "omu_PrimStrDictionary" : "omu_PrimIntDictionary", TypeId(), LAYOUT_RELEASE,
        cls_TypeAdapter<omu_PrimDictionary>::Instance(), omu_PrimDictionaryBase::TypeId());
    meta.AddAttribute(FIELDS[ENTRIES], cls_AttributeType::OBJECT, cls_MapTypeId,
                      HAS_TEXT_KEYS ? cls_CollectionType::MAP_STRING_OBJ : cls_CollectionType::MAP_INT_OBJ);
}

template <class K>
omu_PrimDictionary<K>::omu_PrimDictionary(const cls_ReadVisitor& reader)
    : omu_PrimDictionaryBase(reader.BaseReader(), REPRESENTS)
{
    reader.ReadSharedMap(FIELDS[ENTRIES], m_Entries);
    for (const auto& [key, value] : m_Entries)
        Deepen(value.AsPtr());
}

template <class K>
void omu_PrimDictionary<K>::Put(const K& key, omu_Primitive* owned)
{
    cow_COW<omu_Primitive> value(owned);
    Deepen(owned);
    m_Entries.Insert(key, value);
}

template <class K>
bool omu_PrimDictionary<K>::Remove(const K& key)
{
    return m_Entries.Remove(key);
}

template <class K>
void omu_PrimDictionary<K>::Clear()
{
    m_Entries.Clear();
}

template <class K>
const omu_Primitive* omu_PrimDictionary<K>::Get(const K& key) const
{
    const cow_COW<omu_Primitive>* value = m_Entries.Find(key);
    return value != nullptr ? value->AsPtr() : nullptr;
}

template <class K>
cow_List<const omu_Primitive*> omu_PrimDictionary<K>::Values() const
{
    cow_List<const omu_Primitive*> values;
    values.Reserve(Length());
    for (const auto& [key, value] : m_Entries)
        values.Append(value.AsPtr());
    return values;
}

template <class K>
cow_String omu_PrimDictionary<K>::AsString(int) const
{
    std::string text = "{";
    for (const auto& [key, value] : m_Entries)
    {
        if (text.size() > 1)
            text += ", ";
        text.append(KeyText(key).View()).append(": ");
        text.append(ReprOf(value.AsPtr()).View());
    }
    text += '}';
    return cow_String(text);
}

template <class K>
bool omu_PrimDictionary<K>::operator==(const omu_Primitive& other) const
{
    // Of this very class: a dictionary that a script holds has no entries here.
    return typeid(*this) == typeid(other) &&
           m_Entries == static_cast<const omu_PrimDictionary&>(other).m_Entries;
}

template <class K>
void omu_PrimDictionary<K>::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitDictionary(*this);
}

template <class K>
omu_PrimDictionary<K>* omu_PrimDictionary<K>::Copy() const
{
    return new omu_PrimDictionary(*this);
}

template <class K>
unsigned omu_PrimDictionary<K>::DynTypeId() const
{
    return TypeId();
}

template <class K>
void omu_PrimDictionary<K>::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_PrimDictionaryBase::DBWrite(writer.BaseWriter());
    writer.WriteSharedMap(FIELDS[ENTRIES], m_Entries);
}

template class omu_PrimDictionary<int>;
template class omu_PrimDictionary<cow_String>;
