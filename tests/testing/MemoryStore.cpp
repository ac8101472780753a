#include <testing/MemoryStore.h>

#include <algorithm>
#include <any>
#include <charconv>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <nex_PrimException.h>
#include <nex_RaiseWith.h>
#include <stdexcept>

namespace
{
using Field = cls_FieldHandle;
using Type = cls_AttributeType;
using Code = cls_CollectionType;
using Elements = decltype(MemoryList::elements);
using References = std::vector<MemoryReference>;

const cls_ClassRegistrar& Registrar()
{
    return cls_MetadataRegistrar::Instance().Registrar();
}

std::string NameOf(unsigned typeId)
{
    return Registrar().NameOf(typeId).AsCharPtr();
}

template <class T>
std::string Number(T value)
{
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

[[noreturn]] void Refuse(const std::string& what)
{
    nex_Raise(nex_PrimException(atr_String(("MemoryReader: " + what).c_str())), "tests/testing/MemoryStore",
              __LINE__);
}

template <class Result>
Result CopyOf(const auto& spans)
{
    const auto copy = []<class T>(std::span<const T> values) -> Result {
        return cow_List<T>::FromArray(values.data(), static_cast<int>(values.size()));
    };
    return std::visit(copy, spans);
}

// Fills one object of the store; each part has a writer of its own.
class Writer : public cls_WriteVisitor
{
public:
    explicit Writer(MemoryStore& store) : store_(store) {}

    bool Announce(unsigned typeId, const cls_Uid& uid) const override
    {
        const cls_ClassMetadata* record = Registrar().Find(typeId);
        part_.typeId = typeId;
        part_.version = record != nullptr ? record->Version() : 0;
        part_.uid = uid;
        return true;
    }
    const cls_WriteVisitor& BaseWriter() const override
    {
        base_ = std::make_unique<Writer>(store_);
        return *base_;
    }

    void WriteBool(const Field& field, bool value) const override { Add(field, Type::BOOL, value); }
    void WriteChar(const Field& field, char value) const override { Add(field, Type::CHAR, value); }
    void WriteInt(const Field& field, int value) const override { Add(field, Type::INT, value); }
    void WriteFloat(const Field& field, float value) const override { Add(field, Type::FLOAT, value); }
    void WriteDouble(const Field& field, double value) const override { Add(field, Type::DOUBLE, value); }
    void WriteString(const Field& f, const cow_String& value) const override { Add(f, Type::STRING, value); }
    void WriteMessage(const Field& field, const atr_String& value) const override
    {
        Add(field, Type::MESSAGE, value.AsString());
    }
    void WriteEnum(const Field& field, const cow_String& name) const override
    {
        Add(field, Type::ENUM, name);
    }

    // The parts, those of the bases first, when DBWrite has returned.
    void Finish(std::vector<MemoryPart>& parts) const
    {
        if (base_)
            base_->Finish(parts);
        parts.push_back(part_);
    }

protected:
    void PutObject(const Field& field, const cls_ObjectSource& object) const override
    {
        Add(field, Type::OBJECT, MemoryReference{store_.WriteSource(object)});
    }
    void PutList(const Field& field, const cls_PrimSpan& elements, int columns) const override
    {
        Add(field, Type::OBJECT, MemoryList{CopyOf<Elements>(elements), columns}, cls_ListCode(elements));
    }
    void PutObjectList(const Field& field, std::span<const cls_ObjectSource> objects) const override
    {
        Add(field, Type::OBJECT, MemoryList{Written(objects)}, Code::LIST_OBJ);
    }
    void PutMap(const Field& field, const cls_KeySpan& keys, const cls_PrimSpan& values) const override
    {
        Add(field, Type::OBJECT, MemoryList{CopyOf<Elements>(values), 1, CopyOf<MemoryKeys>(keys)},
            cls_MapCode(keys, values));
    }
    void PutObjectMap(const Field& field, const cls_KeySpan& keys,
                      std::span<const cls_ObjectSource> objects) const override
    {
        Add(field, Type::OBJECT, MemoryList{Written(objects), 1, CopyOf<MemoryKeys>(keys)},
            cls_ObjectMapCode(keys));
    }

private:
    void Add(const Field& field, Type type, MemoryValue value, Code collection = Code::SINGLE) const
    {
        part_.attributes.push_back({field.name, type, collection, std::move(value)});
    }
    References Written(std::span<const cls_ObjectSource> objects) const
    {
        References references;
        for (const cls_ObjectSource& object : objects)
            references.push_back({store_.WriteSource(object)});
        return references;
    }

    MemoryStore& store_;
    mutable MemoryPart part_;
    mutable std::unique_ptr<Writer> base_;
};

// What the readers of one reading share: what sinks left for later references.
struct Reading
{
    const MemoryStore& store;
    std::map<int, std::any> shared = {};
};

// Reads one part of an object: the first `depth` parts are it and its bases; none where that is 0 or less.
class PartReader : public cls_ReadVisitor
{
public:
    PartReader(std::shared_ptr<Reading> reading, int number, std::ptrdiff_t depth)
        : reading_(std::move(reading)), number_(number), depth_(depth)
    {
        if (depth > 0)
            part_ = &reading_->store.At(number).parts.at(static_cast<std::size_t>(depth) - 1);
    }

    unsigned TypeId() const override { return part_->typeId; }
    unsigned Version() const override { return part_->version; }
    cls_Uid Uid() const override { return part_->uid; }
    const cls_ReadVisitor& BaseReader() const override
    {
        base_ = std::make_unique<PartReader>(reading_, number_, depth_ - 1);
        return *base_;
    }

    bool ReadBool(const Field& field, bool& value) const override { return Get(field, Type::BOOL, value); }
    bool ReadChar(const Field& field, char& value) const override { return Get(field, Type::CHAR, value); }
    bool ReadInt(const Field& field, int& value) const override { return Get(field, Type::INT, value); }
    bool ReadFloat(const Field& field, float& value) const override { return Get(field, Type::FLOAT, value); }
    bool ReadDouble(const Field& f, double& value) const override { return Get(f, Type::DOUBLE, value); }
    bool ReadString(const Field& f, cow_String& value) const override { return Get(f, Type::STRING, value); }
    bool ReadMessage(const Field& field, atr_String& value) const override
    {
        cow_String text = value;
        const bool present = Get(field, Type::MESSAGE, text);
        value = present ? atr_String(text) : value;
        return present;
    }
    bool ReadEnum(const Field& f, cow_String& name) const override { return Get(f, Type::ENUM, name); }

    // By type id through the registered adapter, or through `fallback` where the class is not registered.
    static std::unique_ptr<cls_Persistent> Create(const std::shared_ptr<Reading>& reading, int number,
                                                  const cls_AdapterBase* fallback)
    {
        const auto& parts = reading->store.At(number).parts;
        const cls_ClassMetadata* record = Registrar().Find(parts.back().typeId);
        const cls_AdapterBase* adapter = record != nullptr ? record->Adapter() : fallback;
        if (adapter == nullptr)
            Refuse("class " + NameOf(parts.back().typeId) + " is not known");
        return adapter->Create(PartReader(reading, number, std::ssize(parts)));
    }

protected:
    bool GetObject(const Field& field, cls_ObjectSink& sink) const override
    {
        const auto* reference = Find<MemoryReference>(field, Type::OBJECT, Code::SINGLE);
        if (reference != nullptr)
            Take(reference->number, sink);
        return reference != nullptr;
    }
    bool GetList(const Field& field, const cls_PrimSink& elements, int& columns) const override
    {
        const auto* list = Find<MemoryList>(field, Type::OBJECT, cls_ListCode(elements));
        columns = list != nullptr ? list->columns : columns;
        return list != nullptr && Fill(list->elements, elements);
    }
    bool GetObjectList(const Field& field, cls_ObjectSink& sink) const override
    {
        return TakeAll(Find<MemoryList>(field, Type::OBJECT, Code::LIST_OBJ), sink);
    }
    bool GetMap(const Field& field, const cls_KeySink& keys, const cls_PrimSink& values) const override
    {
        const auto* map = Find<MemoryList>(field, Type::OBJECT, cls_MapCode(keys, values));
        return map != nullptr && Fill(*map->keys, keys) && Fill(map->elements, values);
    }
    bool GetObjectMap(const Field& field, const cls_KeySink& keys, cls_ObjectSink& sink) const override
    {
        const auto* map = Find<MemoryList>(field, Type::OBJECT, cls_ObjectMapCode(keys));
        return map != nullptr && Fill(*map->keys, keys) && TakeAll(map, sink);
    }

private:
    template <class T>
    const T* Find(const Field& field, Type type, Code collection) const
    {
        const MemoryAttribute* found = part_->Find(field.name);
        if (found == nullptr)
            return nullptr;
        if (found->type != type || !cls_CollectionsMatch(found->collection, collection))
            Refuse("attribute " + found->name + " has another type");
        return &std::get<T>(found->value);
    }
    template <class T>
    bool Get(const Field& field, Type type, T& value) const
    {
        const T* found = Find<T>(field, type, Code::SINGLE);
        value = found != nullptr ? *found : value;
        return found != nullptr;
    }
    static bool Fill(const auto& from, const auto& sink)
    {
        std::visit([&](auto* to) { *to = std::get<std::remove_reference_t<decltype(*to)>>(from); }, sink);
        return true;
    }
    bool TakeAll(const MemoryList* from, cls_ObjectSink& sink) const
    {
        if (from != nullptr)
            for (const MemoryReference object : std::get<References>(from->elements))
                Take(object.number, sink);
        return from != nullptr;
    }
    void Take(int number, cls_ObjectSink& sink) const
    {
        const unsigned declared = sink.DeclaredTypeId();
        if (number == 0 && !sink.TakeNull())
            Refuse("a null reference where " + NameOf(declared) + " is held by value");
        if (number == 0)
            return;
        const unsigned typeId = reading_->store.LastPart(number).typeId;
        std::any& shared = reading_->shared[number];
        const cls_AdapterBase* fallback = typeId == declared ? sink.DeclaredAdapter() : nullptr;
        if (!Registrar().InheritanceCheck(typeId, declared) ||
            !(shared.has_value() ? sink.TakeShared(shared)
                                 : sink.TakeNew(Create(reading_, number, fallback), shared)))
            Refuse("object #" + Number(number) + " cannot be held as a " + NameOf(declared));
    }

    static inline const MemoryPart none_ = {};
    std::shared_ptr<Reading> reading_;
    int number_;
    std::ptrdiff_t depth_;
    const MemoryPart* part_ = &none_;
    mutable std::unique_ptr<PartReader> base_;
};

// How a value is described.
struct Describer
{
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(char value) const { return std::string("'") + value + "'"; }
    std::string operator()(const cow_String& text) const { return "'" + std::string(text.View()) + "'"; }
    std::string operator()(auto value) const { return Number(value); }
    std::string operator()(MemoryReference object) const
    {
        return object.number == 0 ? "null" : "#" + Number(object.number);
    }
    std::string operator()(const MemoryList& list) const
    {
        std::vector<std::string> texts;
        const auto describe = [&](const auto& items) {
            texts.clear();
            for (const auto& item : items)
                texts.push_back((*this)(item));
        };
        if (list.keys)
            std::visit(describe, *list.keys);
        const std::vector<std::string> keys = texts;
        std::visit(describe, list.elements);
        std::string joined;
        for (std::size_t i = 0; i < texts.size(); ++i)
            joined += (i > 0 ? ", " : "") + (list.keys ? keys.at(i) + ": " : "") + texts[i];
        if (list.keys)
            return "{" + joined + "}";
        const bool ofObjects = std::holds_alternative<References>(list.elements);
        return "[" + joined + "]" + (ofObjects ? "" : " columns " + Number(list.columns));
    }
};

const std::map<Type, const char*> TYPE_NAMES = {
    {Type::CHAR, "CHAR"},     {Type::INT, "INT"},       {Type::FLOAT, "FLOAT"},
    {Type::DOUBLE, "DOUBLE"}, {Type::STRING, "STRING"}, {Type::MESSAGE, "MESSAGE"},
    {Type::BOOL, "BOOL"},     {Type::ENUM, "ENUM"},     {Type::OBJECT, "OBJECT"}};
}

MemoryAttribute* MemoryPart::Find(const std::string& name)
{
    const auto place =
        std::find_if(attributes.begin(), attributes.end(), [&](const auto& a) { return a.name == name; });
    return place != attributes.end() ? &*place : nullptr;
}

void MemoryPart::Drop(const std::string& name)
{
    if (std::erase_if(attributes, [&](const auto& attribute) { return attribute.name == name; }) == 0)
        throw std::logic_error("MemoryPart: no attribute " + name);
}

void MemoryPart::Set(const std::string& name, cls_AttributeType type, MemoryValue value,
                     cls_CollectionType collection)
{
    MemoryAttribute* former = Find(name);
    (former != nullptr ? *former : attributes.emplace_back()) = {name, type, collection, std::move(value)};
}

std::string MemoryPart::Names() const
{
    std::string names;
    for (const MemoryAttribute& attribute : attributes)
        names += (names.empty() ? "" : " ") + attribute.name;
    return names;
}

int MemoryStore::WriteSource(const cls_ObjectSource& source)
{
    if (source.IsNull())
        return 0;
    if (!source.IsByValue() && written_.count(source.Body()) != 0)
        return written_.at(source.Body());
    Object& object = *objects_.emplace_back(std::make_unique<Object>());
    const int number = Count();
    if (!source.IsByValue())
    {
        written_.emplace(source.Body(), number);
        kept_.push_back(source.Keep());
    }
    const Writer writer(*this);
    source.Write(writer);
    writer.Finish(object.parts);
    if (object.parts.back().typeId != source.TypeId())
        throw std::logic_error("MemoryStore: not announced as itself: " + NameOf(source.TypeId()));
    for (std::size_t i = 0; i < object.parts.size(); ++i)
        Check(object.parts[i], i > 0 ? &object.parts[i - 1] : nullptr);
    return number;
}

MemoryPart& MemoryStore::Part(int number, unsigned typeId) const
{
    auto& parts = At(number).parts;
    const auto place =
        std::find_if(parts.begin(), parts.end(), [&](const auto& part) { return part.typeId == typeId; });
    return place != parts.end() ? *place : throw std::logic_error("MemoryStore: no part " + NameOf(typeId));
}

std::unique_ptr<cls_Persistent> MemoryStore::Create(int number) const
{
    return PartReader::Create(std::make_shared<Reading>(Reading{*this}), number, nullptr);
}

std::unique_ptr<const cls_ReadVisitor> MemoryStore::Reader(int number) const
{
    return std::make_unique<PartReader>(std::make_shared<Reading>(Reading{*this}), number,
                                        std::ssize(At(number).parts));
}

void MemoryStore::Check(const MemoryPart& part, const MemoryPart* base)
{
    const cls_ClassMetadata* record = Registrar().Find(part.typeId);
    if (record == nullptr)
        return;
    if (base != nullptr && base->typeId != record->ParentTypeId())
        faults_ += NameOf(part.typeId) + ": " + NameOf(base->typeId) + " is not the registered parent\n";
    int lastIndex = -1;
    for (const MemoryAttribute& attribute : part.attributes)
    {
        const cls_Attribute* declared = record->FindAttribute(cow_String(attribute.name.c_str()));
        const auto* reference = std::get_if<MemoryReference>(&attribute.value);
        const bool held = reference != nullptr && reference->number != 0;
        if (declared == nullptr || declared->type != attribute.type || declared->index <= lastIndex ||
            !cls_CollectionsMatch(declared->collection, attribute.collection) ||
            (held && !Registrar().InheritanceCheck(LastPart(reference->number).typeId, declared->typeId)))
            faults_ += NameOf(part.typeId) + ": " + attribute.name + " is not written as declared\n";
        lastIndex = declared != nullptr ? declared->index : lastIndex;
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
            text += "  " + attribute.name + " " + TYPE_NAMES.at(attribute.type);
            if (attribute.collection != cls_CollectionType::SINGLE)
                text += "/" + Number(static_cast<unsigned>(attribute.collection));
            text += " " + std::visit(Describer(), attribute.value) + "\n";
        }
    }
    return text;
}
