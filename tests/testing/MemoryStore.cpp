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

template <class T>
cow_List<T> Copied(std::span<const T> values)
{
    return cow_List<T>::FromArray(values.data(), static_cast<int>(values.size()));
}

template <class Result>
Result CopyOf(const auto& spans)
{
    return std::visit([](const auto& values) { return Result(Copied(values)); }, spans);
}

// Fills one object of the store; each part has a writer of its own.
class Writer : public cls_WriteVisitor
{
public:
    Writer(MemoryStore& store, std::vector<MemoryPart>& parts) : store_(store), parts_(parts) {}

    bool Announce(unsigned typeId, const cls_Uid& uid) const override
    {
        if (part_.typeId != 0)
            throw std::logic_error("MemoryStore: a part is announced twice");
        part_.typeId = typeId;
        part_.uid = uid;
        if (const cls_ClassMetadata* record = Registrar().Find(typeId))
            part_.version = record->Version();
        return true;
    }
    const cls_WriteVisitor& BaseWriter() const override
    {
        if (part_.typeId == 0)
            throw std::logic_error("MemoryStore: a base part is written before the class is announced");
        if (!base_)
            base_ = std::make_unique<Writer>(store_, parts_);
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

    // Appends this part behind the parts of its bases, when DBWrite has returned.
    void Finish() const
    {
        if (base_)
            base_->Finish();
        if (part_.typeId != 0)
            parts_.push_back(part_);
    }

protected:
    void PutObject(const Field& field, const cls_ObjectSource& object) const override
    {
        Add(field, Type::OBJECT, MemoryReference{store_.WriteSource(object)});
    }
    void PutList(const Field& field, const cls_PrimSpan& elements, int columns) const override
    {
        AddList(field, cls_ListCode(elements), CopyOf<Elements>(elements), {}, columns);
    }
    void PutObjectList(const Field& field, std::span<const cls_ObjectSource> objects) const override
    {
        AddList(field, Code::LIST_OBJ, References(objects));
    }
    void PutMap(const Field& field, const cls_KeySpan& keys, const cls_PrimSpan& values) const override
    {
        AddList(field, cls_MapCode(keys, values), CopyOf<Elements>(values), CopyOf<MemoryKeys>(keys));
    }
    void PutObjectMap(const Field& field, const cls_KeySpan& keys,
                      std::span<const cls_ObjectSource> objects) const override
    {
        AddList(field, cls_ObjectMapCode(keys), References(objects), CopyOf<MemoryKeys>(keys));
    }

private:
    void Add(const Field& field, Type type, MemoryValue value, Code collection = Code::SINGLE) const
    {
        if (part_.typeId == 0)
            throw std::logic_error("MemoryStore: an attribute is written before the class is announced");
        if (part_.Find(field.name) != nullptr)
            throw std::logic_error(std::string("MemoryStore: written twice: ") + field.name);
        part_.attributes.push_back({field.name, type, collection, std::move(value)});
    }
    void AddList(const Field& field, Code code, Elements elements, std::optional<MemoryKeys> keys = {},
                 int columns = 1) const
    {
        Add(field, Type::OBJECT, MemoryList{std::move(elements), columns, std::move(keys)}, code);
    }
    std::vector<MemoryReference> References(std::span<const cls_ObjectSource> objects) const
    {
        std::vector<MemoryReference> references;
        for (const cls_ObjectSource& object : objects)
            references.push_back({store_.WriteSource(object)});
        return references;
    }

    MemoryStore& store_;
    std::vector<MemoryPart>& parts_;
    mutable MemoryPart part_;
    mutable std::unique_ptr<Writer> base_;
};

// What the readers of one reading share: what sinks left for later references, and which objects are under
// construction.
struct Reading
{
    const MemoryStore& store;
    std::map<int, std::any> shared;
    std::map<int, bool> open;
};

// Reads one part of an object: the first `depth` parts are it and its bases; none where that is 0 or less.
class PartReader : public cls_ReadVisitor
{
public:
    PartReader(std::shared_ptr<Reading> reading, int number, int depth)
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
        if (!base_)
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
        cow_String text;
        const bool present = Get(field, Type::MESSAGE, text);
        if (present)
            value = atr_String(text);
        return present;
    }
    bool ReadEnum(const Field& field, cow_String& name) const override
    {
        return Get(field, Type::ENUM, name);
    }

    // By type id through the registered adapter, or through `fallback` where the class is not registered.
    static std::unique_ptr<cls_Persistent> Create(const std::shared_ptr<Reading>& reading, int number,
                                                  const cls_AdapterBase* fallback)
    {
        const auto& parts = reading->store.At(number).parts;
        const cls_ClassMetadata* record = Registrar().Find(parts.back().typeId);
        const cls_AdapterBase* adapter = record != nullptr ? record->Adapter() : fallback;
        if (adapter == nullptr)
            Refuse("class " + NameOf(parts.back().typeId) + " is not known");
        reading->open[number] = true; // for good where the constructor throws: that ends the reading
        auto object = adapter->Create(PartReader(reading, number, static_cast<int>(parts.size())));
        reading->open[number] = false;
        return object;
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
        if (list != nullptr)
            columns = list->columns;
        return Fill(list, elements);
    }
    bool GetObjectList(const Field& field, cls_ObjectSink& sink) const override
    {
        return TakeAll(Find<MemoryList>(field, Type::OBJECT, Code::LIST_OBJ), sink);
    }
    bool GetMap(const Field& field, const cls_KeySink& keys, const cls_PrimSink& values) const override
    {
        const auto* map = Find<MemoryList>(field, Type::OBJECT, cls_MapCode(keys, values));
        return FillKeys(map, keys) && Fill(map, values);
    }
    bool GetObjectMap(const Field& field, const cls_KeySink& keys, cls_ObjectSink& sink) const override
    {
        const auto* map = Find<MemoryList>(field, Type::OBJECT, cls_ObjectMapCode(keys));
        return FillKeys(map, keys) && TakeAll(map, sink);
    }

private:
    template <class T>
    const T* Find(const Field& field, Type type, Code collection) const
    {
        const MemoryAttribute* found = part_->Find(field.name);
        if (found == nullptr)
            return nullptr;
        const auto held = static_cast<unsigned>(found->type);
        const auto code = static_cast<unsigned>(found->collection);
        if (found->type != type)
            Refuse("attribute " + found->name + " has type " + Number(held) + ", expected " +
                   Number(static_cast<unsigned>(type)));
        if (!cls_CollectionsMatch(found->collection, collection))
            Refuse("attribute " + found->name + " has collection " + Number(code) + ", expected " +
                   Number(static_cast<unsigned>(collection)));
        return &std::get<T>(found->value);
    }
    template <class T>
    bool Get(const Field& field, Type type, T& value) const
    {
        const T* found = Find<T>(field, type, Code::SINGLE);
        if (found != nullptr)
            value = *found;
        return found != nullptr;
    }
    static bool Fill(const MemoryList* from, const cls_PrimSink& sink)
    {
        if (from != nullptr)
            std::visit(
                [&](auto* to) { *to = std::get<std::remove_reference_t<decltype(*to)>>(from->elements); },
                sink);
        return from != nullptr;
    }
    static bool FillKeys(const MemoryList* from, const cls_KeySink& sink)
    {
        if (from != nullptr)
            std::visit([&](auto* to) { *to = std::get<std::remove_reference_t<decltype(*to)>>(*from->keys); },
                       sink);
        return from != nullptr;
    }
    bool TakeAll(const MemoryList* from, cls_ObjectSink& sink) const
    {
        if (from != nullptr)
            for (const MemoryReference object : std::get<std::vector<MemoryReference>>(from->elements))
                Take(object.number, sink);
        return from != nullptr;
    }
    void Take(int number, cls_ObjectSink& sink) const
    {
        const unsigned declared = sink.DeclaredTypeId();
        if (number == 0)
        {
            if (!sink.TakeNull())
                Refuse("a null reference where " + NameOf(declared) + " is held by value");
            return;
        }
        const std::string object = "object #" + Number(number);
        const unsigned typeId = reading_->store.LastPart(number).typeId;
        if (!Registrar().InheritanceCheck(typeId, declared))
            Refuse(object + " is a " + NameOf(typeId) + ", not a " + NameOf(declared));
        if (reading_->open[number])
            Refuse(object + " is part of a cyclic reference");
        std::any& shared = reading_->shared[number];
        const cls_AdapterBase* fallback = typeId == declared ? sink.DeclaredAdapter() : nullptr;
        const bool taken = shared.has_value() ? sink.TakeShared(shared)
                                              : sink.TakeNew(Create(reading_, number, fallback), shared);
        if (!taken)
            Refuse(object + " cannot be held as a " + NameOf(declared));
    }

    static inline const MemoryPart none_ = {};
    std::shared_ptr<Reading> reading_;
    int number_;
    int depth_;
    const MemoryPart* part_ = &none_;
    mutable std::unique_ptr<PartReader> base_;
};

// How a value is described.
struct Describer
{
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(char value) const { return std::string("'") + value + "'"; }
    template <class T>
    requires std::is_arithmetic_v<T> std::string operator()(T value) const { return Number(value); }
    std::string operator()(const cow_String& text) const { return "'" + std::string(text.View()) + "'"; }
    std::string operator()(MemoryReference object) const
    {
        return object.number == 0 ? "null" : "#" + Number(object.number);
    }
    std::string operator()(const MemoryList& list) const
    {
        const std::vector<std::string> texts = Texts(list.elements);
        const std::vector<std::string> keys = list.keys ? Texts(*list.keys) : std::vector<std::string>();
        std::string joined;
        for (std::size_t i = 0; i < texts.size(); ++i)
            joined += (i > 0 ? ", " : "") + (list.keys ? keys.at(i) + ": " : "") + texts[i];
        if (list.keys)
            return "{" + joined + "}";
        const bool ofObjects = std::holds_alternative<std::vector<MemoryReference>>(list.elements);
        return "[" + joined + "]" + (ofObjects ? "" : " columns " + Number(list.columns));
    }

private:
    std::vector<std::string> Texts(const auto& lists) const
    {
        std::vector<std::string> texts;
        const auto describe = [&](const auto& item) { texts.push_back((*this)(item)); };
        std::visit([&](const auto& list) { std::for_each(list.begin(), list.end(), describe); }, lists);
        return texts;
    }
};

std::string TypeName(Type type)
{
    static const std::map<Type, const char*> NAMES = {
        {Type::CHAR, "CHAR"},     {Type::INT, "INT"},       {Type::FLOAT, "FLOAT"},
        {Type::DOUBLE, "DOUBLE"}, {Type::STRING, "STRING"}, {Type::MESSAGE, "MESSAGE"},
        {Type::BOOL, "BOOL"},     {Type::ENUM, "ENUM"},     {Type::OBJECT, "OBJECT"}};
    return NAMES.at(type);
}

template <class Attributes>
auto Place(Attributes& attributes, const std::string& name)
{
    return std::find_if(attributes.begin(), attributes.end(), [&](const auto& a) { return a.name == name; });
}
}

const MemoryAttribute* MemoryPart::Find(const std::string& name) const
{
    const auto place = Place(attributes, name);
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
    const auto place = Place(attributes, name);
    MemoryAttribute fresh = {name, type, collection, std::move(value)};
    if (place != attributes.end())
        *place = std::move(fresh);
    else
        attributes.push_back(std::move(fresh));
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
    const Writer writer(*this, object.parts);
    source.Write(writer);
    writer.Finish();
    if (object.parts.empty() || object.parts.back().typeId != source.TypeId())
        throw std::logic_error("MemoryStore: not announced as itself: " + NameOf(source.TypeId()));
    for (std::size_t i = 0; i < object.parts.size(); ++i)
        Check(object.parts[i], i > 0 ? &object.parts[i - 1] : nullptr);
    return number;
}

MemoryPart& MemoryStore::Part(int number, unsigned typeId) const
{
    for (MemoryPart& part : At(number).parts)
        if (part.typeId == typeId)
            return part;
    throw std::logic_error("MemoryStore: object #" + Number(number) + " has no part " + NameOf(typeId));
}

std::unique_ptr<cls_Persistent> MemoryStore::Create(int number) const
{
    return PartReader::Create(std::make_shared<Reading>(Reading{*this, {}, {}}), number, nullptr);
}

std::unique_ptr<const cls_ReadVisitor> MemoryStore::Reader(int number) const
{
    // The object itself is under construction for as long as anyone reads it.
    const auto reading = std::make_shared<Reading>(Reading{*this, {}, {{number, true}}});
    return std::make_unique<PartReader>(reading, number, static_cast<int>(At(number).parts.size()));
}

void MemoryStore::Check(const MemoryPart& part, const MemoryPart* base)
{
    const cls_ClassMetadata* record = Registrar().Find(part.typeId);
    if (record == nullptr)
        return;
    const auto report = [&](const std::string& what) { faults_ += NameOf(part.typeId) + ": " + what + "\n"; };
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
        if (reference == nullptr || reference->number == 0 || At(reference->number).parts.empty())
            continue;
        const unsigned typeId = LastPart(reference->number).typeId;
        if (!Registrar().InheritanceCheck(typeId, declared->typeId))
            report(attribute.name + " holds a " + NameOf(typeId) + ", declared as " +
                   NameOf(declared->typeId));
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
            text += " " + std::visit(Describer(), attribute.value) + "\n";
        }
    }
    return text;
}
