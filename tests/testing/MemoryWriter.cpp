#include <stdexcept>
#include <testing/MemoryWriter.h>

#include <cls_MetadataRegistrar.h>

namespace
{
template <class T>
cow_List<T> Copied(std::span<const T> values)
{
    return cow_List<T>::FromArray(values.data(), static_cast<int>(values.size()));
}

MemoryList ListOf(const cls_PrimSpan& elements, int columns)
{
    MemoryList list;
    std::visit([&](const auto& values) { list.elements = Copied(values); }, elements);
    list.columns = columns;
    return list;
}

MemoryKeys KeysOf(const cls_KeySpan& keys)
{
    return std::visit([](const auto& values) { return MemoryKeys(Copied(values)); }, keys);
}
}

MemoryWriter::MemoryWriter(MemoryStore& store, std::vector<MemoryPart>& parts) : store_(store), parts_(parts)
{}

bool MemoryWriter::Announce(unsigned typeId, const cls_Uid& uid) const
{
    if (announced_)
        throw std::logic_error("MemoryWriter: a part is announced twice");
    announced_ = true;
    part_.typeId = typeId;
    part_.uid = uid;
    if (const cls_ClassMetadata* record = cls_MetadataRegistrar::Instance().Registrar().Find(typeId))
        part_.version = record->Version();
    return true;
}

const cls_WriteVisitor& MemoryWriter::BaseWriter() const
{
    if (!announced_)
        throw std::logic_error("MemoryWriter: the base part is written before the class is announced");
    if (!base_)
        base_ = std::make_unique<MemoryWriter>(store_, parts_);
    return *base_;
}

void MemoryWriter::Finish() const
{
    if (base_)
        base_->Finish();
    if (announced_)
        parts_.push_back(part_);
}

void MemoryWriter::Add(const cls_FieldHandle& field, cls_AttributeType type, MemoryValue value,
                       cls_CollectionType collection) const
{
    if (!announced_)
        throw std::logic_error(std::string("MemoryWriter: ") + field.name +
                               " is written before the class is announced");
    if (part_.Find(field.name) != nullptr)
        throw std::logic_error(std::string("MemoryWriter: ") + field.name + " is written twice");
    part_.Set(field.name, type, std::move(value), collection);
}

void MemoryWriter::WriteBool(const cls_FieldHandle& field, bool value) const
{
    Add(field, cls_AttributeType::BOOL, value);
}
void MemoryWriter::WriteChar(const cls_FieldHandle& field, char value) const
{
    Add(field, cls_AttributeType::CHAR, value);
}
void MemoryWriter::WriteInt(const cls_FieldHandle& field, int value) const
{
    Add(field, cls_AttributeType::INT, value);
}
void MemoryWriter::WriteFloat(const cls_FieldHandle& field, float value) const
{
    Add(field, cls_AttributeType::FLOAT, value);
}
void MemoryWriter::WriteDouble(const cls_FieldHandle& field, double value) const
{
    Add(field, cls_AttributeType::DOUBLE, value);
}
void MemoryWriter::WriteString(const cls_FieldHandle& field, const cow_String& value) const
{
    Add(field, cls_AttributeType::STRING, value);
}
void MemoryWriter::WriteMessage(const cls_FieldHandle& field, const atr_String& value) const
{
    Add(field, cls_AttributeType::MESSAGE, value.AsString());
}
void MemoryWriter::WriteEnum(const cls_FieldHandle& field, const cow_String& name) const
{
    Add(field, cls_AttributeType::ENUM, name);
}

void MemoryWriter::PutObject(const cls_FieldHandle& field, const cls_ObjectSource& object) const
{
    Add(field, cls_AttributeType::OBJECT, MemoryReference{store_.WriteSource(object)});
}

void MemoryWriter::PutList(const cls_FieldHandle& field, const cls_PrimSpan& elements, int columns) const
{
    Add(field, cls_AttributeType::OBJECT, ListOf(elements, columns), cls_ListCode(elements));
}

void MemoryWriter::PutObjectList(const cls_FieldHandle& field,
                                 std::span<const cls_ObjectSource> objects) const
{
    Add(field, cls_AttributeType::OBJECT, MemoryObjects{Numbers(objects)}, cls_CollectionType::LIST_OBJ);
}

void MemoryWriter::PutMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                          const cls_PrimSpan& values) const
{
    Add(field, cls_AttributeType::OBJECT, MemoryMap{KeysOf(keys), ListOf(values, 1)},
        cls_MapCode(keys, values));
}

void MemoryWriter::PutObjectMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                                std::span<const cls_ObjectSource> objects) const
{
    Add(field, cls_AttributeType::OBJECT, MemoryObjectMap{KeysOf(keys), Numbers(objects)},
        cls_ObjectMapCode(keys));
}

std::vector<int> MemoryWriter::Numbers(std::span<const cls_ObjectSource> objects) const
{
    std::vector<int> numbers;
    for (const cls_ObjectSource& object : objects)
        numbers.push_back(store_.WriteSource(object));
    return numbers;
}
