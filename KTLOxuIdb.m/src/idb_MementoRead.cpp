#include <bio_DataException.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <cls_ObjectSink.h>
#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <idb_Fault.h>
#include <idb_MementoRead.h>
#include <idb_ObjectFrame.h>
#include <idb_StoredMemento.h>
#include <idb_WholeFile.h>

#include <algorithm>
#include <any>
#include <cstdio>
#include <deque>
#include <optional>
#include <typeinfo>
#include <vector>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_MementoRead";
using idb_Fault::Text;
using Type = cls_AttributeType;
using Code = cls_CollectionType;

constexpr const char* NO_LIST_OBJ = "error getting ReadListPrim for object collection type: %d\n";
constexpr const char* NO_MAP_INT_OBJ = "error getting ReadMap int to obj collection type: %d\n";
constexpr const char* NO_MAP_STRING_OBJ = "error getting ReadMap string to obj collection type: %d\n";
// Without a line end on purpose: the text is fixed, and the exception that follows it is told by others.
constexpr const char* WRONG_POINTER = "Error reading object ptr for %x does not inherit from %x";

// What things cost beside the bytes that they take in the memento, estimated from above.
constexpr std::uint64_t OBJECT_COST = 256;
constexpr std::uint64_t REFERENCE_COST = 24;
constexpr std::size_t TEXT_COST = 40;
constexpr std::size_t PAIR_COST = 72;
template <class T>
constexpr std::size_t TEXT_COST_OF = std::is_same_v<T, cow_String> ? TEXT_COST : 0;

const cls_ClassRegistrar& Registrar()
{
    return cls_MetadataRegistrar::Instance().Registrar();
}

// Takes one object whatever it is, for its one owner.
class OwnerSink : public cls_ObjectSink
{
public:
    unsigned DeclaredTypeId() const override { return cls_UniversalRoot; }
    const cls_AdapterBase* DeclaredAdapter() const override { return nullptr; }
    bool TakeNull() override { return true; }
    bool TakeNew(std::unique_ptr<cls_Persistent> object, std::any& shared) override
    {
        shared = cls_TakenByValue();
        taken = std::move(object);
        return true;
    }
    bool TakeShared(const std::any&) override { return false; }

    std::unique_ptr<cls_Persistent> taken;
};

// Keeps a value changed for the length of a scope.
template <class T>
class Kept
{
public:
    Kept(T& value, T inside) : value_(value), before_(std::exchange(value, inside)) {}
    ~Kept() { value_ = before_; }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

private:
    T& value_;
    T before_;
};

struct State
{
    std::any shared;
    bool open = false;
};

struct Collection
{
    cls_CollectionType recorded;
    bio_Ifilter payload;
    bio_Ifilter rest = payload; // behind what the reader made last has read
};
}

struct idb_MementoRead::Body
{
    Body(idb_MementoRead& self, std::vector<unsigned char> owned, const idb_MementoLimits& bounds)
        : Body(self, std::span<const unsigned char>(owned), bounds)
    {
        bytes = std::move(owned); // which leaves the bytes where they are
    }
    Body(idb_MementoRead& self, std::span<const unsigned char> looked, const idb_MementoLimits& bounds)
        : limits(bounds),
          stored(looked, bounds),
          nothing(self),
          states(Affordable<State>(stored.ObjectCount())),
          texts(Affordable<cow_String>(stored.AttributeCount()))
    {}

    // So many, charged before they are made.
    template <class T>
    std::size_t Affordable(std::size_t count)
    {
        stored.Budget().Charge(count, sizeof(T));
        return count;
    }

    std::vector<unsigned char> bytes;
    idb_MementoLimits limits;
    idb_StoredMemento stored;
    idb_ObjectFrame nothing;
    std::deque<idb_ObjectFrame> frames; // by depth
    std::size_t depth = 0;
    std::vector<State> states;
    std::vector<cow_String> texts; // by attribute of a class
    std::vector<unsigned> fits; // by class index, the declared class that it was found to descend from last
    std::optional<Collection> current;
};

idb_MementoRead::idb_MementoRead(std::span<const unsigned char> bytes, const idb_MementoLimits& limits)
    : body_(std::make_unique<Body>(*this, bytes, limits))
{}

idb_MementoRead::idb_MementoRead(const cow_String& path, const idb_MementoLimits& limits)
    : body_(std::make_unique<Body>(*this, idb_WholeFile::Read(path, limits.bytes), limits))
{}

idb_MementoRead::~idb_MementoRead() = default;

std::unique_ptr<cls_Persistent> idb_MementoRead::Root(const cow_String& name)
{
    RequireRoot(name);
    OwnerSink sink;
    GetObject({0, name.AsCharPtr()}, sink);
    return std::move(sink.taken);
}

bool idb_MementoRead::HasRoot(const cow_String& name) const
{
    return body_->stored.FindRoot(name) != nullptr;
}

cow_List<cow_String> idb_MementoRead::RootNames() const
{
    cow_List<cow_String> names;
    for (const idb_StoredRoot& root : body_->stored.Roots())
        names.Append(root.name);
    return names;
}

const cow_List<cow_String>& idb_MementoRead::Warnings() const
{
    return body_->stored.Warnings();
}

const idb_StoredMemento& idb_MementoRead::Stored() const
{
    return body_->stored;
}

void idb_MementoRead::ReadObjPtr(std::uint32_t number, cls_ObjectSink& sink)
{
    const unsigned declared = sink.DeclaredTypeId();
    Charge(REFERENCE_COST);
    if (number == 0)
    {
        if (!sink.TakeNull())
            idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::NULL_VALUE, Registrar().NameOf(declared));
        return;
    }
    Body& body = *body_;
    if (number > body.stored.ObjectCount())
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::BAD_REFERENCE, Text(number),
                         Text(body.stored.ObjectCount()));
    const idb_StoredClass& stored = body.stored.ClassOf(number);
    const auto at = static_cast<std::int64_t>(body.stored.Object(number).at);
    if (stored.record == nullptr)
        idb_Fault::Raise(SOURCE, __LINE__, {at, number, stored.name}, idb_Fault::NOT_KNOWN, Text(number),
                         stored.name, idb_Fault::Hexadecimal(stored.typeId));
    if (!(stored.record->Name() == stored.name))
        idb_Fault::Raise(SOURCE, __LINE__, {at, number, stored.name}, idb_Fault::OTHER_NAME, Text(number),
                         stored.name, idb_Fault::Hexadecimal(stored.typeId), stored.record->Name());
    body.fits.resize(body.stored.Classes().size());
    unsigned& fits = body.fits[body.stored.Object(number).classIndex];
    if (fits != declared)
    {
        if (!Registrar().InheritanceCheck(stored.typeId, declared))
        {
            std::fprintf(stderr, WRONG_POINTER, stored.typeId, declared);
            idb_Fault::Raise(SOURCE, __LINE__, {at, number, stored.name}, idb_Fault::WRONG_CLASS,
                             Text(number), stored.name, Registrar().NameOf(declared));
        }
        fits = declared;
    }
    State& state = body.states[number - 1];
    if (state.open)
        idb_Fault::Raise(SOURCE, __LINE__, {at, number, stored.name}, idb_Fault::CYCLIC, Text(number));
    const bool taken =
        state.shared.has_value() ? sink.TakeShared(state.shared) : sink.TakeNew(Create(number), state.shared);
    if (!taken)
        idb_Fault::Raise(SOURCE, __LINE__, {at, number, stored.name}, idb_Fault::NOT_HELD, Text(number),
                         stored.name, Registrar().NameOf(declared));
}

unsigned idb_MementoRead::TypeIdOf(std::uint32_t number) const
{
    return number == 0 || number > body_->stored.ObjectCount() ? 0 : body_->stored.ClassOf(number).typeId;
}

bool idb_MementoRead::IsShared(std::uint32_t number) const
{
    if (number == 0)
        return false;
    const std::any& shared = body_->states[number - 1].shared;
    return shared.has_value() && shared.type() != typeid(cls_TakenByValue);
}

std::unique_ptr<cls_Persistent> idb_MementoRead::Create(std::uint32_t number)
{
    Body& body = *body_;
    const idb_StoredClass& stored = body.stored.ClassOf(number);
    const idb_StoredObject& object = body.stored.Object(number);
    const auto place = [&] {
        return idb_Fault::Place{static_cast<std::int64_t>(object.at), number, stored.name};
    };
    const cls_AdapterBase* const adapter = stored.record->Adapter();
    if (adapter == nullptr || adapter->IsAbstract())
        idb_Fault::Raise(SOURCE, __LINE__, place(), idb_Fault::IS_ABSTRACT, Text(number), stored.name,
                         idb_Fault::Hexadecimal(stored.typeId));
    if (body.depth == body.limits.depth)
        idb_Fault::Raise(SOURCE, __LINE__, place(), idb_Fault::READ_LIMIT, idb_Fault::DEPTH);
    Charge(OBJECT_COST);
    Charge(object.length);
    while (body.frames.size() <= body.depth)
        body.frames.emplace_back(*this);
    idb_ObjectFrame& frame = body.frames[body.depth];
    const Kept deeper(body.depth, body.depth + 1);
    const Kept open(body.states[number - 1].open, true);
    try
    {
        frame.Open(body.stored, body.limits, number);
        return adapter->Create(frame.Reader(0));
    }
    catch (idb_MementoException& fault)
    {
        fault.Complete(place());
        throw;
    }
    catch (const bio_DataException& fault)
    {
        idb_Fault::Raise(SOURCE, __LINE__, {static_cast<std::int64_t>(fault.Position()), number, stored.name},
                         idb_Fault::OBJECT_DATA, Text(number), stored.name, fault.UserReport());
    }
    catch (const KTLBasException& fault)
    {
        idb_Fault::Raise(SOURCE, __LINE__, place(), idb_Fault::OBJECT_DATA, Text(number), stored.name,
                         fault.UserReport());
    }
}

void idb_MementoRead::Charge(std::uint64_t bytes)
{
    body_->stored.Budget().Charge(bytes);
}

void idb_MementoRead::RequireText(const bio_Ifilter& in) const
{
    bio_Ifilter probe = in;
    std::int32_t length = 0;
    probe.Read(length);
    if (length > 0 && static_cast<std::uint64_t>(length) > body_->limits.text)
        idb_Fault::Raise(SOURCE, __LINE__, {.byte = static_cast<std::int64_t>(in.Position())},
                         idb_Fault::READ_LIMIT, idb_Fault::TEXT_LENGTH);
}

cow_String& idb_MementoRead::LastText(std::size_t place)
{
    return body_->texts[place];
}

void idb_MementoRead::BeginCollection(cls_CollectionType recorded, const bio_Ifilter& payload)
{
    body_->current.emplace(Collection{recorded, payload});
}

void idb_MementoRead::EndCollection()
{
    if (!body_->current)
        return;
    const bio_Ifilter in = body_->current->rest;
    body_->current.reset();
    if (in.Left() != 0)
        idb_Fault::Raise(SOURCE, __LINE__, {.byte = static_cast<std::int64_t>(in.Position())},
                         idb_Fault::DATA_GOES_ON, Text(in.Position()), Text(in.Left()));
}

template <class R>
std::unique_ptr<R> idb_MementoRead::MakeCollection(std::initializer_list<cls_CollectionType> accepted,
                                                   const char* message, std::size_t bytesEach,
                                                   std::size_t costEach)
{
    if (!body_->current)
        return nullptr;
    Collection& current = *body_->current;
    if (std::find(accepted.begin(), accepted.end(), current.recorded) == accepted.end())
    {
        std::fprintf(stderr, message, static_cast<int>(current.recorded));
        return nullptr;
    }
    // No more elements than the bytes can hold.
    bio_Ifilter probe = current.payload;
    std::int32_t count = 0;
    probe.Read(count);
    const std::uint64_t most = current.payload.Left() / bytesEach;
    const std::uint64_t elements = count > 0 ? std::min(static_cast<std::uint64_t>(count), most) : 0;
    Charge(current.payload.Left() + elements * costEach);
    current.rest = current.payload;
    if constexpr (std::is_constructible_v<R, idb_MementoRead&, bio_Ifilter&>)
        return std::make_unique<R>(*this, current.rest);
    else
        return std::make_unique<R>(current.rest);
}

template <class T>
void idb_MementoRead::RequireTexts(const cow_List<T>& values) const
{
    if constexpr (std::is_same_v<T, cow_String>)
        for (const cow_String& text : values)
            if (static_cast<std::uint64_t>(text.Length()) > body_->limits.text)
                idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::READ_LIMIT, idb_Fault::TEXT_LENGTH);
}

template <idb_ListElement T>
std::unique_ptr<idb_ReadListPrim<T>> idb_MementoRead::MakeReadListPrim(const T&)
{
    using Traits = idb_ElementTraits<T>;
    auto reader = MakeCollection<idb_ReadListPrim<T>>({Traits::LIST, Traits::ARRAY}, Traits::NO_LIST,
                                                      Traits::BYTES, TEXT_COST_OF<T>);
    if (reader)
        RequireTexts(reader->Elements());
    return reader;
}

template <idb_MapElement T>
std::unique_ptr<idb_ReadMapInt2Prim<T>> idb_MementoRead::MakeReadMapInt2Prim(const T&)
{
    using Traits = idb_ElementTraits<T>;
    auto reader = MakeCollection<idb_ReadMapInt2Prim<T>>({Traits::MAP_INT}, Traits::NO_MAP_INT,
                                                         idb_ElementTraits<int>::BYTES + Traits::BYTES,
                                                         PAIR_COST + TEXT_COST_OF<T>);
    if (reader)
        RequireTexts(reader->Values());
    return reader;
}

template <idb_MapElement T>
std::unique_ptr<idb_ReadMapString2Prim<T>> idb_MementoRead::MakeReadMapString2Prim(const T&)
{
    using Traits = idb_ElementTraits<T>;
    auto reader = MakeCollection<idb_ReadMapString2Prim<T>>(
        {Traits::MAP_STRING}, Traits::NO_MAP_STRING, idb_ElementTraits<cow_String>::BYTES + Traits::BYTES,
        PAIR_COST + TEXT_COST + TEXT_COST_OF<T>);
    if (reader)
    {
        RequireTexts(reader->Keys());
        RequireTexts(reader->Values());
    }
    return reader;
}

// Every element type there is.
template OXU_EXPORT std::unique_ptr<idb_ReadListPrim<bool>> idb_MementoRead::MakeReadListPrim(const bool&);
template OXU_EXPORT std::unique_ptr<idb_ReadListPrim<int>> idb_MementoRead::MakeReadListPrim(const int&);
template OXU_EXPORT std::unique_ptr<idb_ReadListPrim<unsigned>>
idb_MementoRead::MakeReadListPrim(const unsigned&);
template OXU_EXPORT std::unique_ptr<idb_ReadListPrim<float>> idb_MementoRead::MakeReadListPrim(const float&);
template OXU_EXPORT std::unique_ptr<idb_ReadListPrim<double>>
idb_MementoRead::MakeReadListPrim(const double&);
template OXU_EXPORT std::unique_ptr<idb_ReadListPrim<cow_String>>
idb_MementoRead::MakeReadListPrim(const cow_String&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapInt2Prim<int>>
idb_MementoRead::MakeReadMapInt2Prim(const int&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapInt2Prim<unsigned>>
idb_MementoRead::MakeReadMapInt2Prim(const unsigned&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapInt2Prim<float>>
idb_MementoRead::MakeReadMapInt2Prim(const float&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapInt2Prim<double>>
idb_MementoRead::MakeReadMapInt2Prim(const double&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapInt2Prim<cow_String>>
idb_MementoRead::MakeReadMapInt2Prim(const cow_String&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapString2Prim<int>>
idb_MementoRead::MakeReadMapString2Prim(const int&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapString2Prim<unsigned>>
idb_MementoRead::MakeReadMapString2Prim(const unsigned&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapString2Prim<float>>
idb_MementoRead::MakeReadMapString2Prim(const float&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapString2Prim<double>>
idb_MementoRead::MakeReadMapString2Prim(const double&);
template OXU_EXPORT std::unique_ptr<idb_ReadMapString2Prim<cow_String>>
idb_MementoRead::MakeReadMapString2Prim(const cow_String&);

std::unique_ptr<idb_ReadListObj> idb_MementoRead::MakeReadListObj()
{
    // Numbers take what they take in the memento; ReadObjPtr charges what they refer to.
    return MakeCollection<idb_ReadListObj>({Code::LIST_OBJ}, NO_LIST_OBJ, sizeof(std::uint32_t), 0);
}

std::unique_ptr<idb_ReadMapInt2Obj> idb_MementoRead::MakeReadMapInt2Obj()
{
    return MakeCollection<idb_ReadMapInt2Obj>({Code::MAP_INT_OBJ}, NO_MAP_INT_OBJ, 2 * sizeof(std::uint32_t),
                                              PAIR_COST);
}

std::unique_ptr<idb_ReadMapString2Obj> idb_MementoRead::MakeReadMapString2Obj()
{
    auto reader = MakeCollection<idb_ReadMapString2Obj>(
        {Code::MAP_STRING_OBJ, Code::MAP_STRING_OBJ_93, Code::MAP_STRING_OBJ_112}, NO_MAP_STRING_OBJ,
        2 * sizeof(std::uint32_t), PAIR_COST + TEXT_COST);
    if (reader)
        RequireTexts(reader->Keys());
    return reader;
}

std::unique_ptr<idb_ReadMapInt2Obj> idb_MementoRead::MakeAltReadMapInt2Obj()
{
    return nullptr;
}

void idb_MementoRead::RequireRoot(const cow_String& name) const
{
    // A name with a zero byte was never written, and would be cut on its way through the visitor.
    if (!HasRoot(name) || name.View().find('\0') != std::string_view::npos)
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::NO_ROOT, name);
}

bool idb_MementoRead::NoRoot(const cls_FieldHandle& field, cls_AttributeType asked) const
{
    if (HasRoot(field.name))
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::ROOT_TYPE, field.name,
                         Text(static_cast<unsigned>(asked)));
    return false;
}

unsigned idb_MementoRead::Version() const
{
    return body_->stored.Major();
}

const cls_ReadVisitor& idb_MementoRead::BaseReader() const
{
    return body_->nothing.Reader(0);
}

bool idb_MementoRead::ReadBool(const cls_FieldHandle& field, bool&) const
{
    return NoRoot(field, Type::BOOL);
}
bool idb_MementoRead::ReadChar(const cls_FieldHandle& field, char&) const
{
    return NoRoot(field, Type::CHAR);
}
bool idb_MementoRead::ReadInt(const cls_FieldHandle& field, int&) const
{
    return NoRoot(field, Type::INT);
}
bool idb_MementoRead::ReadFloat(const cls_FieldHandle& field, float&) const
{
    return NoRoot(field, Type::FLOAT);
}
bool idb_MementoRead::ReadDouble(const cls_FieldHandle& field, double&) const
{
    return NoRoot(field, Type::DOUBLE);
}
bool idb_MementoRead::ReadString(const cls_FieldHandle& field, cow_String&) const
{
    return NoRoot(field, Type::STRING);
}
bool idb_MementoRead::ReadMessage(const cls_FieldHandle& field, atr_String&) const
{
    return NoRoot(field, Type::MESSAGE);
}
bool idb_MementoRead::ReadEnum(const cls_FieldHandle& field, cow_String&) const
{
    return NoRoot(field, Type::ENUM);
}

bool idb_MementoRead::GetObject(const cls_FieldHandle& field, cls_ObjectSink& sink) const
{
    const idb_StoredRoot* root = body_->stored.FindRoot(field.name);
    if (root == nullptr)
        return false;
    // Reading changes what the memento has built, and nothing that it says.
    const_cast<idb_MementoRead*>(this)->ReadObjPtr(root->number, sink);
    return true;
}

bool idb_MementoRead::GetList(const cls_FieldHandle& field, const cls_PrimSink&, int&) const
{
    return NoRoot(field, Type::OBJECT);
}
bool idb_MementoRead::GetObjectList(const cls_FieldHandle& field, cls_ObjectSink&) const
{
    return NoRoot(field, Type::OBJECT);
}
bool idb_MementoRead::GetMap(const cls_FieldHandle& field, const cls_KeySink&, const cls_PrimSink&) const
{
    return NoRoot(field, Type::OBJECT);
}
bool idb_MementoRead::GetObjectMap(const cls_FieldHandle& field, const cls_KeySink&, cls_ObjectSink&) const
{
    return NoRoot(field, Type::OBJECT);
}
