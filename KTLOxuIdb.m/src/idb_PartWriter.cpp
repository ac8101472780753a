#include <bio_LittleEndian.h>
#include <bio_Ofilter.h>
#include <cls_ClassMetadata.h>
#include <cls_MetadataRegistrar.h>
#include <idb_Fault.h>
#include <idb_MementoFormat.h>
#include <idb_MementoWrite.h>
#include <idb_PartWriter.h>
#include <idb_WriteFrame.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_PartWriter";
constexpr const char* BASE_AFTER = "idb_PartWriter: a base part is announced or written out of its turn";
namespace Format = idb_MementoFormat;
using idb_Fault::Text;
using Type = cls_AttributeType;
using Code = cls_CollectionType;

constexpr std::size_t LONG_LIST = 1u << 16; // bytes
template <class T>
constexpr bool LIES_AS_STORED =
    std::is_arithmetic_v<T> && !std::is_same_v<T, bool> && std::endian::native == std::endian::little;
}

void idb_PartWriter::Reset() const
{
    announced_ = false;
    baseUsed_ = false;
    opened_ = false;
}

bool idb_PartWriter::Announce(unsigned typeId, const cls_Uid& uid) const
{
    if (announced_)
        nex_RaiseInternal(BASE_AFTER, SOURCE, __LINE__);
    if (typeId != typeId_)
    {
        classIndex_ = frame_.Memento().ClassIndex(typeId, record_);
        typeId_ = typeId;
    }
    if (index_ > 0)
    {
        frame_.Memento().RequireParts(index_ + 1);
        const cls_ClassMetadata* const derived = frame_.Part(index_ - 1).Record();
        if (derived->ParentTypeId() != typeId)
            idb_Fault::Raise(SOURCE, __LINE__, {.className = derived->Name()}, idb_Fault::WRITE_NO_BASE,
                             derived->Name(), record_->Name());
    }
    announced_ = true;
    uid_ = uid;
    return true;
}

const cls_WriteVisitor& idb_PartWriter::BaseWriter() const
{
    if (!announced_ || opened_)
        nex_RaiseInternal(BASE_AFTER, SOURCE, __LINE__);
    baseUsed_ = true;
    return frame_.Part(index_ + 1);
}

void idb_PartWriter::Open() const
{
    if (opened_)
        return;
    if (!announced_)
        nex_RaiseInternal(BASE_AFTER, SOURCE, __LINE__);
    if (baseUsed_)
        frame_.Part(index_ + 1).Close();
    opened_ = true;
    frame_.SetOpen(this);
    written_.clear();
    inOrder_ = true;
    bio_Ofilter& out = frame_.Stream();
    const cls_Uid::Bytes uid = uid_.AsBytes();
    unsigned char head[Format::PART_HEAD_BYTES + sizeof(std::uint32_t)] = {};
    std::memcpy(bio_Store(head, classIndex_), uid.data(), uid.size());
    lengthAt_ = out.Position() + sizeof classIndex_ + uid.size();
    out.WriteRaw(head, sizeof head);
    begin_ = frame_.Length() - sizeof(std::uint32_t);
}

void idb_PartWriter::Close() const
{
    if (!announced_)
        return;
    Open();
    bio_Ofilter& out = frame_.Stream();
    out.Patch(lengthAt_, static_cast<std::uint64_t>(frame_.Length() - begin_));
    out.Patch(lengthAt_ + sizeof(std::uint64_t), static_cast<std::uint32_t>(written_.size()));
}

const cls_Attribute& idb_PartWriter::Declared(const cls_FieldHandle& field, cls_AttributeType type) const
{
    Open();
    const std::vector<cls_Attribute>& declared = record_->Attributes();
    const std::string_view name = field.name;
    auto place = static_cast<std::size_t>(field.index);
    if (place >= declared.size() || declared[place].name.View() != name)
        place = static_cast<std::size_t>(
            std::find_if(declared.begin(), declared.end(),
                         [&](const cls_Attribute& attribute) { return attribute.name.View() == name; }) -
            declared.begin());
    if (place == declared.size())
        idb_Fault::Raise(SOURCE, __LINE__, {.className = record_->Name()}, idb_Fault::NOT_DECLARED,
                         record_->Name(), field.name);
    if (declared[place].type != type)
        idb_Fault::Raise(SOURCE, __LINE__, {.className = record_->Name()}, idb_Fault::WRITTEN_TYPE,
                         record_->Name(), field.name, Text(static_cast<unsigned>(type)),
                         Text(static_cast<unsigned>(declared[place].type)));
    inOrder_ = inOrder_ && (written_.empty() || written_.back() < place);
    if (!inOrder_ && std::find(written_.begin(), written_.end(), place) != written_.end())
        idb_Fault::Raise(SOURCE, __LINE__, {.className = record_->Name()}, idb_Fault::WRITTEN_TWICE,
                         record_->Name(), field.name);
    written_.push_back(place);
    return declared[place];
}

void idb_PartWriter::BeginCollection(const cls_FieldHandle& field, cls_CollectionType asked) const
{
    const cls_Attribute& attribute = Declared(field, Type::OBJECT);
    RequireCollection(attribute, asked);
    bio_Ofilter& out = frame_.Stream();
    unsigned char head[Format::ATTRIBUTE_HEAD_BYTES];
    StoreHead(head, attribute, 0);
    out.WriteRaw(head, sizeof head);
    attributeLengthAt_ = out.Position() - sizeof(std::uint64_t);
    attributeBegin_ = frame_.Length();
}

void idb_PartWriter::RequireCollection(const cls_Attribute& attribute, cls_CollectionType asked) const
{
    if (!frame_.Memento().CheckCollectionType(asked, attribute.name))
        idb_Fault::Raise(SOURCE, __LINE__, {.className = record_->Name()}, idb_Fault::WRITTEN_COLLECTION,
                         record_->Name(), attribute.name, Text(static_cast<unsigned>(asked)),
                         Text(static_cast<unsigned>(attribute.collection)));
}

unsigned char* idb_PartWriter::StoreHead(unsigned char* at, const cls_Attribute& attribute,
                                         std::uint64_t length) const
{
    at = bio_Store(at, static_cast<std::uint16_t>(written_.back()));
    at = bio_Store(at, static_cast<std::uint16_t>(attribute.type));
    at = bio_Store(at, static_cast<std::uint16_t>(attribute.collection));
    return bio_Store(at, length);
}

void idb_PartWriter::EndCollection() const
{
    if (const std::unique_ptr<idb_CollectionWriter> collection = std::move(frame_.Collection()))
        collection->Finish();
    frame_.Stream().Patch(attributeLengthAt_, static_cast<std::uint64_t>(frame_.Length() - attributeBegin_));
}

template <class T>
void idb_PartWriter::WriteSingle(const cls_FieldHandle& field, cls_AttributeType type, const T& value) const
{
    const cls_Attribute& attribute = Declared(field, type);
    if (attribute.collection != Code::SINGLE)
        RequireCollection(attribute, Code::SINGLE);
    // The length is known beforehand, so that head and value go out at once.
    unsigned char bytes[Format::ATTRIBUTE_HEAD_BYTES + sizeof(std::uint64_t)];
    bio_Ofilter& out = frame_.Stream();
    if constexpr (std::is_same_v<T, cow_String>)
    {
        const auto length = static_cast<std::uint32_t>(value.Length());
        unsigned char* const end =
            bio_Store(StoreHead(bytes, attribute, sizeof length + std::uint64_t{length}), length);
        out.WriteRaw(bytes, static_cast<std::size_t>(end - bytes));
        out.WriteRaw(value.AsCharPtr(), length);
    }
    else
    {
        using Bits = std::conditional_t<sizeof(T) == 1, std::uint8_t,
                                        std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>;
        unsigned char* const end =
            bio_Store(StoreHead(bytes, attribute, sizeof(Bits)), std::bit_cast<Bits>(value));
        out.WriteRaw(bytes, static_cast<std::size_t>(end - bytes));
    }
}

void idb_PartWriter::WriteBool(const cls_FieldHandle& field, bool value) const
{
    WriteSingle(field, Type::BOOL, value);
}
void idb_PartWriter::WriteChar(const cls_FieldHandle& field, char value) const
{
    WriteSingle(field, Type::CHAR, value);
}
void idb_PartWriter::WriteInt(const cls_FieldHandle& field, int value) const
{
    WriteSingle(field, Type::INT, value);
}
void idb_PartWriter::WriteFloat(const cls_FieldHandle& field, float value) const
{
    WriteSingle(field, Type::FLOAT, value);
}
void idb_PartWriter::WriteDouble(const cls_FieldHandle& field, double value) const
{
    WriteSingle(field, Type::DOUBLE, value);
}
void idb_PartWriter::WriteString(const cls_FieldHandle& field, const cow_String& value) const
{
    frame_.Memento().RequireText(value);
    WriteSingle(field, Type::STRING, value);
}
void idb_PartWriter::WriteMessage(const cls_FieldHandle& field, const atr_String& value) const
{
    frame_.Memento().RequireText(value.AsString());
    WriteSingle(field, Type::MESSAGE, value.AsString());
}
void idb_PartWriter::WriteEnum(const cls_FieldHandle& field, const cow_String& name) const
{
    frame_.Memento().RequireText(name);
    WriteSingle(field, Type::ENUM, name);
}

void idb_PartWriter::PutObject(const cls_FieldHandle& field, const cls_ObjectSource& object) const
{
    Open();
    // The object first: it is written by a frame of its own, and may refuse.
    const std::uint32_t number = frame_.Memento().Write(object);
    WriteSingle(field, Type::OBJECT, number);
}

void idb_PartWriter::PutList(const cls_FieldHandle& field, const cls_PrimSpan& elements, int columns) const
{
    BeginCollection(field, cls_ListCode(elements));
    std::visit(
        [&]<class T>(const std::span<const T>& values) {
            if constexpr (std::is_same_v<T, cow_String>)
                for (const cow_String& text : values)
                    frame_.Memento().RequireText(text);
            frame_.Memento().MakeWriteListPrim(T(), columns)->Lend(values);
        },
        elements);
    EndCollection();
}

void idb_PartWriter::PutSharedList(const cls_FieldHandle& field, const cls_PrimList& list, int columns) const
{
    std::visit(
        [&]<class T>(const cow_List<T>* values) {
            const std::span<const T> all(values->Data(), static_cast<std::size_t>(values->Length()));
            if (!LIES_AS_STORED<T> || all.size_bytes() < LONG_LIST)
            {
                PutList(field, all, columns);
                return;
            }
            // The elements lie in the list as in the memento, which shares it instead of copying them twice.
            BeginCollection(field, cls_ListCode(all));
            frame_.Stream().Write(values->Length());
            frame_.Stream().Write(columns);
            frame_.Lend({reinterpret_cast<const unsigned char*>(all.data()), all.size_bytes()},
                        std::make_shared<const cow_List<T>>(*values));
            EndCollection();
        },
        list);
}

void idb_PartWriter::PutObjectList(const cls_FieldHandle& field,
                                   std::span<const cls_ObjectSource> objects) const
{
    BeginCollection(field, Code::LIST_OBJ);
    idb_WriteListObj* const writer = frame_.Memento().MakeWriteListObj();
    for (const cls_ObjectSource& object : objects)
        writer->Write(frame_.Memento().Write(object));
    EndCollection();
}

void idb_PartWriter::PutMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                            const cls_PrimSpan& values) const
{
    BeginCollection(field, cls_MapCode(keys, values));
    idb_MementoWrite& memento = frame_.Memento();
    std::visit(
        [&]<class K, class T>(const std::span<const K>& allKeys, const std::span<const T>& allValues) {
            // cls_MapCode has refused bool.
            if constexpr (!std::is_same_v<T, bool>)
            {
                const auto write = [&](auto* writer) {
                    for (std::size_t i = 0; i < allKeys.size(); ++i)
                    {
                        if constexpr (std::is_same_v<K, cow_String>)
                            memento.RequireText(allKeys[i]);
                        if constexpr (std::is_same_v<T, cow_String>)
                            memento.RequireText(allValues[i]);
                        writer->Write(allKeys[i], allValues[i]);
                    }
                };
                if constexpr (std::is_same_v<K, int>)
                    write(memento.MakeWriteMapInt2Prim(T()));
                else
                    write(memento.MakeWriteMapString2Prim(T()));
            }
        },
        keys, values);
    EndCollection();
}

void idb_PartWriter::PutObjectMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                                  std::span<const cls_ObjectSource> objects) const
{
    BeginCollection(field, cls_ObjectMapCode(keys));
    idb_MementoWrite& memento = frame_.Memento();
    std::visit(
        [&]<class K>(const std::span<const K>& allKeys) {
            const auto write = [&](auto* writer) {
                for (std::size_t i = 0; i < allKeys.size(); ++i)
                {
                    if constexpr (std::is_same_v<K, cow_String>)
                        memento.RequireText(allKeys[i]);
                    writer->Write(allKeys[i], memento.Write(objects[i]));
                }
            };
            if constexpr (std::is_same_v<K, int>)
                write(memento.MakeWriteMapInt2Obj());
            else
                write(memento.MakeWriteMapString2Obj());
        },
        keys);
    EndCollection();
}
