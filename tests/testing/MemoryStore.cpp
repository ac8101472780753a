#include <testing/MemoryStore.h>

#include <algorithm>
#include <charconv>
#include <cls_MetadataRegistrar.h>
#include <stdexcept>
#include <testing/MemoryReader.h>
#include <testing/MemoryWriter.h>

namespace
{
const cls_ClassRegistrar& Registrar()
{
    return cls_MetadataRegistrar::Instance().Registrar();
}

std::string Number(auto value)
{
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

std::string Text(bool value)
{
    return value ? "true" : "false";
}
std::string Text(char value)
{
    return std::string("'") + value + "'";
}
std::string Text(int value)
{
    return Number(value);
}
std::string Text(unsigned value)
{
    return Number(value);
}
std::string Text(float value)
{
    return Number(value);
}
std::string Text(double value)
{
    return Number(value);
}
std::string Text(const cow_String& value)
{
    return "'" + std::string(value.View()) + "'";
}
std::string Text(MemoryReference reference)
{
    return reference.number == 0 ? "null" : "#" + Number(reference.number);
}

// "a, b, c" of count texts.
template <class F>
std::string Joined(int count, F textAt)
{
    std::string joined;
    for (int i = 0; i < count; ++i)
        joined += (i > 0 ? ", " : "") + textAt(i);
    return joined;
}

std::string ReferenceAt(const std::vector<int>& numbers, int i)
{
    return Text(MemoryReference{numbers.at(static_cast<std::size_t>(i))});
}

template <class F>
std::string Pairs(const MemoryKeys& keys, F valueAt)
{
    return std::visit(
        [&](const auto& list) {
            return "{" + Joined(list.Length(), [&](int i) { return Text(list.Get(i)) + ": " + valueAt(i); }) +
                   "}";
        },
        keys);
}

std::string ElementAt(const MemoryList& list, int i)
{
    return std::visit([i](const auto& elements) { return Text(elements.Get(i)); }, list.elements);
}

std::string Text(const MemoryList& list)
{
    const int count = std::visit([](const auto& elements) { return elements.Length(); }, list.elements);
    return "[" + Joined(count, [&](int i) { return ElementAt(list, i); }) + "] columns " +
           Number(list.columns);
}
std::string Text(const MemoryMap& map)
{
    return Pairs(map.keys, [&](int i) { return ElementAt(map.values, i); });
}
std::string Text(const MemoryObjects& objects)
{
    return "[" +
           Joined(static_cast<int>(objects.numbers.size()),
                  [&](int i) { return ReferenceAt(objects.numbers, i); }) +
           "]";
}
std::string Text(const MemoryObjectMap& map)
{
    return Pairs(map.keys, [&](int i) { return ReferenceAt(map.numbers, i); });
}

std::string TypeName(cls_AttributeType type)
{
    switch (type)
    {
    case cls_AttributeType::CHAR:
        return "CHAR";
    case cls_AttributeType::INT:
        return "INT";
    case cls_AttributeType::FLOAT:
        return "FLOAT";
    case cls_AttributeType::DOUBLE:
        return "DOUBLE";
    case cls_AttributeType::STRING:
        return "STRING";
    case cls_AttributeType::MESSAGE:
        return "MESSAGE";
    case cls_AttributeType::BOOL:
        return "BOOL";
    case cls_AttributeType::ENUM:
        return "ENUM";
    case cls_AttributeType::OBJECT:
        return "OBJECT";
    }
    return Number(static_cast<unsigned>(type));
}

std::string NameOf(unsigned typeId)
{
    return Registrar().NameOf(typeId).AsCharPtr();
}
}

const MemoryAttribute* MemoryPart::Find(const std::string& name) const
{
    const auto place = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const auto& attribute) { return attribute.name == name; });
    return place != attributes.end() ? &*place : nullptr;
}

void MemoryPart::Drop(const std::string& name)
{
    if (std::erase_if(attributes, [&](const auto& attribute) { return attribute.name == name; }) == 0)
        throw std::logic_error("MemoryPart: no attribute " + name);
}

void MemoryPart::Rename(const std::string& name, const std::string& newName)
{
    for (MemoryAttribute& attribute : attributes)
    {
        if (attribute.name == name)
        {
            attribute.name = newName;
            return;
        }
    }
    throw std::logic_error("MemoryPart: no attribute " + name);
}

void MemoryPart::Set(const std::string& name, cls_AttributeType type, MemoryValue value,
                     cls_CollectionType collection)
{
    MemoryAttribute fresh = {name, type, collection, std::move(value)};
    for (MemoryAttribute& attribute : attributes)
    {
        if (attribute.name == name)
        {
            attribute = std::move(fresh);
            return;
        }
    }
    attributes.push_back(std::move(fresh));
}

std::string MemoryPart::Names() const
{
    std::string names;
    for (const MemoryAttribute& attribute : attributes)
        names += (names.empty() ? "" : " ") + attribute.name;
    return names;
}

MemoryStore::MemoryStore() = default;
MemoryStore::~MemoryStore() = default;

int MemoryStore::WriteSource(const cls_ObjectSource& source)
{
    if (source.IsNull())
        return 0;
    if (!source.IsByValue())
        if (const auto former = written_.find(source.Body()); former != written_.end())
            return former->second;
    Object& object = *objects_.emplace_back(std::make_unique<Object>());
    const int number = Count();
    if (!source.IsByValue())
    {
        written_.emplace(source.Body(), number);
        kept_.push_back(source.Keep());
    }
    const MemoryWriter writer(*this, object.parts);
    source.Write(writer);
    writer.Finish();
    if (object.parts.empty())
        throw std::logic_error("MemoryStore: an object did not announce itself");
    if (object.parts.back().typeId != source.TypeId())
        faults_ += "an object of class " + NameOf(source.TypeId()) + " announces itself as " +
                   NameOf(object.parts.back().typeId) + "\n";
    Check(object);
    return number;
}

MemoryStore::Object& MemoryStore::At(int number)
{
    return *objects_.at(static_cast<std::size_t>(number) - 1);
}

const MemoryStore::Object& MemoryStore::At(int number) const
{
    return *objects_.at(static_cast<std::size_t>(number) - 1);
}

MemoryPart& MemoryStore::Part(int number, unsigned typeId)
{
    for (MemoryPart& part : At(number).parts)
        if (part.typeId == typeId)
            return part;
    throw std::logic_error("MemoryStore: object #" + Number(number) + " has no part " + NameOf(typeId));
}

std::unique_ptr<cls_Persistent> MemoryStore::Create(int number) const
{
    return MemoryReader::Create(std::make_shared<MemoryReading>(*this), number, nullptr);
}

std::unique_ptr<const cls_ReadVisitor> MemoryStore::Reader(int number) const
{
    auto reading = std::make_shared<MemoryReading>(*this);
    const int parts = static_cast<int>(At(number).parts.size());
    // The object itself is under construction for as long as anyone reads it.
    reading->open[static_cast<std::size_t>(number)] = true;
    return std::make_unique<MemoryReader>(reading, number, parts);
}

void MemoryStore::Check(const Object& object)
{
    const MemoryPart* base = nullptr;
    for (const MemoryPart& part : object.parts)
    {
        CheckPart(part, base);
        base = &part;
    }
}

void MemoryStore::CheckPart(const MemoryPart& part, const MemoryPart* base)
{
    const cls_ClassMetadata* record = Registrar().Find(part.typeId);
    if (record == nullptr)
        return;
    const std::string className = record->Name().AsCharPtr();
    const auto report = [&](const std::string& what) { faults_ += className + ": " + what + "\n"; };
    if (base != nullptr && base->typeId != record->ParentTypeId())
        report("base part " + NameOf(base->typeId) + ", registered parent " + NameOf(record->ParentTypeId()));
    int lastIndex = -1;
    for (const MemoryAttribute& attribute : part.attributes)
    {
        const cls_Attribute* declared = record->FindAttribute(cow_String(attribute.name.c_str()));
        if (declared == nullptr)
        {
            report(attribute.name + " is not declared");
            continue;
        }
        if (declared->type != attribute.type)
            report(attribute.name + " is written as " + TypeName(attribute.type) + ", declared as " +
                   TypeName(declared->type));
        if (!cls_CollectionsMatch(declared->collection, attribute.collection))
            report(attribute.name + " is written as collection " +
                   Number(static_cast<unsigned>(attribute.collection)) + ", declared as " +
                   Number(static_cast<unsigned>(declared->collection)));
        if (declared->index <= lastIndex)
            report(attribute.name + " is written out of order");
        lastIndex = declared->index;
        const auto* reference = std::get_if<MemoryReference>(&attribute.value);
        if (reference != nullptr && reference->number != 0 && !At(reference->number).parts.empty())
        {
            const unsigned typeId = At(reference->number).parts.back().typeId;
            if (!Registrar().InheritanceCheck(typeId, declared->typeId))
                report(attribute.name + " holds a " + NameOf(typeId) + ", declared as " +
                       NameOf(declared->typeId));
        }
    }
}

std::string MemoryStore::Describe(int number) const
{
    std::string text;
    for (const MemoryPart& part : At(number).parts)
    {
        text += NameOf(part.typeId) + "\n";
        for (const MemoryAttribute& attribute : part.attributes)
        {
            text += "  " + attribute.name + " " + TypeName(attribute.type);
            if (attribute.collection != cls_CollectionType::SINGLE)
                text += "/" + Number(static_cast<unsigned>(attribute.collection));
            text += " " + std::visit([](const auto& value) { return Text(value); }, attribute.value) + "\n";
        }
    }
    return text;
}
