#include <testing/MemoryReader.h>

#include <cls_MetadataRegistrar.h>
#include <nex_PrimException.h>
#include <nex_RaiseWith.h>

namespace
{
[[noreturn]] void Refuse(const std::string& what)
{
    nex_Raise(nex_PrimException(atr_String(("MemoryReader: " + what).c_str())), "tests/testing/MemoryReader",
              __LINE__);
}

const cls_ClassRegistrar& Registrar()
{
    return cls_MetadataRegistrar::Instance().Registrar();
}

// Marks an object as under construction, and unmarks it whatever happens.
class Opening
{
public:
    Opening(MemoryReading& reading, int number) : reading_(reading), number_(static_cast<std::size_t>(number))
    {
        reading_.open[number_] = true;
    }
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
    ~Opening() { reading_.open[number_] = false; }

private:
    MemoryReading& reading_;
    std::size_t number_;
};

std::string NameOf(unsigned typeId)
{
    return Registrar().NameOf(typeId).AsCharPtr();
}

// The list of the sink's own type among those that the record may hold.
template <class Sink, class Variant>
void Fill(const Sink& sink, const Variant& found)
{
    std::visit(
        [&](auto* list) {
            const auto* same = std::get_if<std::remove_pointer_t<decltype(list)>>(&found);
            if (same == nullptr)
                Refuse("a record of another element type");
            *list = *same;
        },
        sink);
}
}

MemoryReading::MemoryReading(const MemoryStore& from)
    : store(from),
      shared(static_cast<std::size_t>(from.Count()) + 1),
      open(static_cast<std::size_t>(from.Count()) + 1)
{}

MemoryReader::MemoryReader(std::shared_ptr<MemoryReading> reading, int number, int depth)
    : reading_(std::move(reading)), number_(number), depth_(depth)
{
    if (depth_ > 0)
        part_ = &reading_->store.At(number).parts.at(static_cast<std::size_t>(depth_) - 1);
}

unsigned MemoryReader::TypeId() const
{
    return part_ != nullptr ? part_->typeId : 0;
}

unsigned MemoryReader::Version() const
{
    return part_ != nullptr ? part_->version : 0;
}

cls_Uid MemoryReader::Uid() const
{
    return part_ != nullptr ? part_->uid : cls_Uid::Null();
}

const cls_ReadVisitor& MemoryReader::BaseReader() const
{
    if (!base_)
        base_ = std::make_unique<MemoryReader>(reading_, number_, depth_ - 1);
    return *base_;
}

const MemoryAttribute* MemoryReader::Find(const cls_FieldHandle& field, cls_AttributeType type,
                                          cls_CollectionType collection) const
{
    const MemoryAttribute* attribute = part_ != nullptr ? part_->Find(field.name) : nullptr;
    if (attribute == nullptr)
        return nullptr;
    if (attribute->type != type)
        Refuse("attribute " + attribute->name + " has type " +
               std::to_string(static_cast<unsigned>(attribute->type)) + ", expected " +
               std::to_string(static_cast<unsigned>(type)));
    if (!cls_CollectionsMatch(attribute->collection, collection))
        Refuse("attribute " + attribute->name + " has collection " +
               std::to_string(static_cast<unsigned>(attribute->collection)) + ", expected " +
               std::to_string(static_cast<unsigned>(collection)));
    return attribute;
}

template <class T>
bool MemoryReader::Get(const cls_FieldHandle& field, cls_AttributeType type, T& value) const
{
    const MemoryAttribute* attribute = Find(field, type, cls_CollectionType::SINGLE);
    if (attribute == nullptr)
        return false;
    value = std::get<T>(attribute->value);
    return true;
}

bool MemoryReader::ReadBool(const cls_FieldHandle& field, bool& value) const
{
    return Get(field, cls_AttributeType::BOOL, value);
}
bool MemoryReader::ReadChar(const cls_FieldHandle& field, char& value) const
{
    return Get(field, cls_AttributeType::CHAR, value);
}
bool MemoryReader::ReadInt(const cls_FieldHandle& field, int& value) const
{
    return Get(field, cls_AttributeType::INT, value);
}
bool MemoryReader::ReadFloat(const cls_FieldHandle& field, float& value) const
{
    return Get(field, cls_AttributeType::FLOAT, value);
}
bool MemoryReader::ReadDouble(const cls_FieldHandle& field, double& value) const
{
    return Get(field, cls_AttributeType::DOUBLE, value);
}
bool MemoryReader::ReadString(const cls_FieldHandle& field, cow_String& value) const
{
    return Get(field, cls_AttributeType::STRING, value);
}
bool MemoryReader::ReadMessage(const cls_FieldHandle& field, atr_String& value) const
{
    cow_String text;
    if (!Get(field, cls_AttributeType::MESSAGE, text))
        return false;
    value = atr_String(text);
    return true;
}
bool MemoryReader::ReadEnum(const cls_FieldHandle& field, cow_String& name) const
{
    return Get(field, cls_AttributeType::ENUM, name);
}

std::unique_ptr<cls_Persistent> MemoryReader::Create(const std::shared_ptr<MemoryReading>& reading,
                                                     int number, const cls_AdapterBase* fallback)
{
    const auto& parts = reading->store.At(number).parts;
    const unsigned typeId = parts.back().typeId;
    const cls_ClassMetadata* record = Registrar().Find(typeId);
    const cls_AdapterBase* adapter = record != nullptr ? record->Adapter() : fallback;
    if (adapter == nullptr)
        Refuse("class " + NameOf(typeId) + " is not known");
    const Opening opening(*reading, number);
    return adapter->Create(MemoryReader(reading, number, static_cast<int>(parts.size())));
}

void MemoryReader::Take(int number, cls_ObjectSink& sink) const
{
    if (number == 0)
    {
        if (!sink.TakeNull())
            Refuse("a null reference where " + NameOf(sink.DeclaredTypeId()) + " is held by value");
        return;
    }
    const unsigned typeId = reading_->store.At(number).parts.back().typeId;
    const unsigned declared = sink.DeclaredTypeId();
    if (!Registrar().InheritanceCheck(typeId, declared))
        Refuse("object #" + std::to_string(number) + " is a " + NameOf(typeId) + ", not a " +
               NameOf(declared));
    const auto slot = static_cast<std::size_t>(number);
    if (reading_->open[slot])
        Refuse("object #" + std::to_string(number) + " is part of a cyclic reference");
    std::any& shared = reading_->shared[slot];
    const bool taken =
        shared.has_value()
            ? sink.TakeShared(shared)
            : sink.TakeNew(Create(reading_, number, typeId == declared ? sink.DeclaredAdapter() : nullptr),
                           shared);
    if (!taken)
        Refuse("object #" + std::to_string(number) + " cannot be held as a " + NameOf(declared));
}

bool MemoryReader::GetObject(const cls_FieldHandle& field, cls_ObjectSink& sink) const
{
    const MemoryAttribute* attribute = Find(field, cls_AttributeType::OBJECT, cls_CollectionType::SINGLE);
    if (attribute == nullptr)
        return false;
    Take(std::get<MemoryReference>(attribute->value).number, sink);
    return true;
}

bool MemoryReader::GetList(const cls_FieldHandle& field, const cls_PrimSink& elements, int& columns) const
{
    const MemoryAttribute* attribute = Find(field, cls_AttributeType::OBJECT, cls_ListCode(elements));
    if (attribute == nullptr)
        return false;
    const auto& list = std::get<MemoryList>(attribute->value);
    Fill(elements, list.elements);
    columns = list.columns;
    return true;
}

bool MemoryReader::GetObjectList(const cls_FieldHandle& field, cls_ObjectSink& sink) const
{
    const MemoryAttribute* attribute = Find(field, cls_AttributeType::OBJECT, cls_CollectionType::LIST_OBJ);
    if (attribute == nullptr)
        return false;
    for (const int number : std::get<MemoryObjects>(attribute->value).numbers)
        Take(number, sink);
    return true;
}

bool MemoryReader::GetMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                          const cls_PrimSink& values) const
{
    const MemoryAttribute* attribute = Find(field, cls_AttributeType::OBJECT, cls_MapCode(keys, values));
    if (attribute == nullptr)
        return false;
    const auto& map = std::get<MemoryMap>(attribute->value);
    Fill(keys, map.keys);
    Fill(values, map.values.elements);
    return true;
}

bool MemoryReader::GetObjectMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                                cls_ObjectSink& sink) const
{
    const MemoryAttribute* attribute = Find(field, cls_AttributeType::OBJECT, cls_ObjectMapCode(keys));
    if (attribute == nullptr)
        return false;
    const auto& map = std::get<MemoryObjectMap>(attribute->value);
    Fill(keys, map.keys);
    for (const int number : map.numbers)
        Take(number, sink);
    return true;
}
