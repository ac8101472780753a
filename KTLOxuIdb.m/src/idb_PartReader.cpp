#include <cls_TypeId.h>
#include <idb_Fault.h>
#include <idb_MementoRead.h>
#include <idb_ObjectFrame.h>
#include <idb_PartReader.h>

#include <cstring>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_PartReader";
using idb_Fault::Text;
using Type = cls_AttributeType;
using Code = cls_CollectionType;
}

const idb_StoredPart* idb_PartReader::Part() const
{
    return frame_.Part(level_);
}

unsigned idb_PartReader::TypeId() const
{
    return Part() == nullptr ? 0 : frame_.ClassOf(*Part()).typeId;
}

unsigned idb_PartReader::Version() const
{
    return Part() == nullptr ? 0 : frame_.ClassOf(*Part()).version;
}

cls_Uid idb_PartReader::Uid() const
{
    return Part() == nullptr ? cls_Uid::Null() : Part()->uid;
}

const cls_ReadVisitor& idb_PartReader::BaseReader() const
{
    return level_ < frame_.Levels() ? frame_.Reader(level_ + 1) : *this;
}

bool idb_PartReader::ReadBool(const cls_FieldHandle& field, bool& value) const
{
    return ReadSingle(field, Type::BOOL, value);
}
bool idb_PartReader::ReadChar(const cls_FieldHandle& field, char& value) const
{
    return ReadSingle(field, Type::CHAR, value);
}
bool idb_PartReader::ReadInt(const cls_FieldHandle& field, int& value) const
{
    return ReadSingle(field, Type::INT, value);
}
bool idb_PartReader::ReadFloat(const cls_FieldHandle& field, float& value) const
{
    return ReadSingle(field, Type::FLOAT, value);
}
bool idb_PartReader::ReadDouble(const cls_FieldHandle& field, double& value) const
{
    return ReadSingle(field, Type::DOUBLE, value);
}
bool idb_PartReader::ReadString(const cls_FieldHandle& field, cow_String& value) const
{
    return ReadSingle(field, Type::STRING, value);
}
bool idb_PartReader::ReadMessage(const cls_FieldHandle& field, atr_String& value) const
{
    cow_String text;
    const bool present = ReadSingle(field, Type::MESSAGE, text);
    if (present)
        value = atr_String(text);
    return present;
}
bool idb_PartReader::ReadEnum(const cls_FieldHandle& field, cow_String& name) const
{
    return ReadSingle(field, Type::ENUM, name);
}

bool idb_PartReader::GetObject(const cls_FieldHandle& field, cls_ObjectSink& sink) const
{
    const idb_PartAttribute* attribute = Find(field, Type::OBJECT);
    if (attribute == nullptr)
        return false;
    RequireSingle(*attribute, field);
    bio_Ifilter in = attribute->payload;
    std::uint32_t number = 0;
    in.Read(number);
    RequireEnd(in);
    frame_.Memento().ReadObjPtr(number, sink);
    return true;
}

bool idb_PartReader::GetList(const cls_FieldHandle& field, const cls_PrimSink& elements, int& columns) const
{
    if (Begin(field) == nullptr)
        return false;
    idb_MementoRead& memento = frame_.Memento();
    std::visit(
        [&]<class T>(cow_List<T>* to) {
            const auto reader = Given(memento.MakeReadListPrim(T()), field, cls_ListCode(elements));
            memento.EndCollection();
            *to = reader->Elements();
            columns = reader->Columns();
        },
        elements);
    return true;
}

bool idb_PartReader::GetObjectList(const cls_FieldHandle& field, cls_ObjectSink& sink) const
{
    if (Begin(field) == nullptr)
        return false;
    const auto reader = Given(frame_.Memento().MakeReadListObj(), field, Code::LIST_OBJ);
    frame_.Memento().EndCollection();
    for (int i = 0; reader->Next(i); ++i)
        reader->ReadObjCow(sink);
    return true;
}

bool idb_PartReader::GetMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                            const cls_PrimSink& values) const
{
    if (Begin(field) == nullptr)
        return false;
    idb_MementoRead& memento = frame_.Memento();
    std::visit(
        [&]<class K, class T>(cow_List<K>* keysTo, cow_List<T>* valuesTo) {
            if constexpr (!std::is_same_v<T, bool>)
            {
                const auto read = [&](const auto& reader) {
                    memento.EndCollection();
                    *keysTo = reader->Keys();
                    *valuesTo = reader->Values();
                };
                if constexpr (std::is_same_v<K, int>)
                    read(Given(memento.MakeReadMapInt2Prim(T()), field, cls_MapCode(keys, values)));
                else
                    read(Given(memento.MakeReadMapString2Prim(T()), field, cls_MapCode(keys, values)));
            }
        },
        keys, values);
    return true;
}

bool idb_PartReader::GetObjectMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                                  cls_ObjectSink& sink) const
{
    if (Begin(field) == nullptr)
        return false;
    idb_MementoRead& memento = frame_.Memento();
    std::visit(
        [&]<class K>(cow_List<K>* keysTo) {
            const auto read = [&](const auto& reader) {
                memento.EndCollection();
                const cow_List<K> found = reader->Keys();
                for (int i = 0; reader->Next(i); ++i)
                    reader->ReadObjCow(sink);
                *keysTo = found;
            };
            if constexpr (std::is_same_v<K, int>)
                read(Given(memento.MakeReadMapInt2Obj(), field, cls_ObjectMapCode(keys)));
            else
                read(Given(memento.MakeReadMapString2Obj(), field, cls_ObjectMapCode(keys)));
        },
        keys);
    return true;
}

const idb_PartAttribute* idb_PartReader::Find(const cls_FieldHandle& field, cls_AttributeType type) const
{
    const idb_PartAttribute* attribute = Part() == nullptr ? nullptr : frame_.Find(*Part(), field);
    if (attribute != nullptr && attribute->type != static_cast<unsigned>(type))
        idb_Fault::Raise(
            SOURCE, __LINE__,
            {static_cast<std::int64_t>(attribute->payload.Position()), frame_.Number(), frame_.Class().name},
            idb_Fault::BAD_TYPE, Text(frame_.Number()), frame_.Class().name, field.name,
            Text(attribute->type), Text(static_cast<unsigned>(type)));
    return attribute;
}

const idb_PartAttribute* idb_PartReader::Begin(const cls_FieldHandle& field) const
{
    const idb_PartAttribute* attribute = Find(field, Type::OBJECT);
    if (attribute != nullptr)
        frame_.Memento().BeginCollection(static_cast<Code>(attribute->collection), attribute->payload);
    return attribute;
}

template <class T>
bool idb_PartReader::ReadSingle(const cls_FieldHandle& field, cls_AttributeType type, T& value) const
{
    const idb_PartAttribute* attribute = Find(field, type);
    if (attribute == nullptr)
        return false;
    RequireSingle(*attribute, field);
    bio_Ifilter in = attribute->payload;
    if constexpr (std::is_same_v<T, cow_String>)
        frame_.Memento().RequireText(in);
    T found{};
    if constexpr (std::is_same_v<T, cow_String>)
        found = ReadText(in, *attribute);
    else
        in.Read(found);
    RequireEnd(in);
    value = std::move(found);
    return true;
}

cow_String idb_PartReader::ReadText(bio_Ifilter& in, const idb_PartAttribute& attribute) const
{
    constexpr std::size_t LENGTH_BYTES = 4;
    constexpr int LONGEST_KEPT = 64;
    cow_String& last = frame_.Memento().LastText(frame_.ClassOf(*Part()).firstAttribute + attribute.index);
    const std::span<const unsigned char> rest = in.Rest();
    const auto length = static_cast<std::size_t>(last.Length());
    if (length != 0 && rest.size() == LENGTH_BYTES + length &&
        bio_Load<std::uint32_t>(rest.data()) == length &&
        std::memcmp(rest.data() + LENGTH_BYTES, last.AsCharPtr(), length) == 0)
    {
        in.Skip(rest.size());
        return last;
    }
    cow_String text;
    in.Read(text);
    if (text.Length() <= LONGEST_KEPT)
        last = text;
    return text;
}

template <class P>
P idb_PartReader::Given(P reader, const cls_FieldHandle& field, cls_CollectionType asked) const
{
    if (reader == nullptr)
        RefuseCollection(field, frame_.Find(*Part(), field)->collection, asked);
    return reader;
}

void idb_PartReader::RequireSingle(const idb_PartAttribute& attribute, const cls_FieldHandle& field) const
{
    if (attribute.collection != 0)
        RefuseCollection(field, attribute.collection, Code::SINGLE);
}

void idb_PartReader::RefuseCollection(const cls_FieldHandle& field, unsigned recorded,
                                      cls_CollectionType asked) const
{
    const idb_PartAttribute* attribute = frame_.Find(*Part(), field);
    idb_Fault::Raise(
        SOURCE, __LINE__,
        {static_cast<std::int64_t>(attribute->payload.Position()), frame_.Number(), frame_.Class().name},
        idb_Fault::BAD_COLLECTION, Text(frame_.Number()), frame_.Class().name, field.name, Text(recorded),
        Text(static_cast<unsigned>(asked)));
}

void idb_PartReader::RequireEnd(const bio_Ifilter& in)
{
    if (in.Left() != 0)
        idb_Fault::Raise(SOURCE, __LINE__, {.byte = static_cast<std::int64_t>(in.Position())},
                         idb_Fault::DATA_GOES_ON, Text(in.Position()), Text(in.Left()));
}
