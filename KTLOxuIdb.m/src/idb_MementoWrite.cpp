#include <bio_Crc32c.h>
#include <bio_LittleEndian.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <idb_ByteChunks.h>
#include <idb_Fault.h>
#include <idb_MementoFormat.h>
#include <idb_MementoWrite.h>
#include <idb_WholeFile.h>
#include <idb_WriteFrame.h>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <exception>
#include <unordered_map>
#include <unordered_set>

namespace
{
namespace Format = idb_MementoFormat;
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_MementoWrite";
constexpr const char* COLLECTION_TYPES = "Error in collections types have: %d looking for: %d %s\n";
// In place of the number of an object whose writing has not ended.
constexpr std::uint32_t UNDER_WAY = 0;

struct Root
{
    cow_String name;
    std::uint32_t number;
};

void WriteSectionHead(bio_Ofilter& out, const char* tag, std::uint64_t length)
{
    out.WriteRaw(tag, Format::TAG_BYTES);
    out.Write(Format::MUST_UNDERSTAND);
    out.Write(length);
}

// A whole section behind what the stream holds; its checksum.
std::uint32_t WriteSection(bio_Ofilter& out, const char* tag, const bio_Ofilter& payload)
{
    const std::size_t begin = out.Position();
    WriteSectionHead(out, tag, payload.Position());
    out.WriteRaw(payload.Bytes().data(), payload.Position());
    const std::uint32_t checksum = bio_Crc32c(std::span(out.Bytes()).subspan(begin));
    out.Write(checksum);
    return checksum;
}
}

struct idb_MementoWrite::Body
{
    cow_String path; // empty for memory
    idb_MementoLimits limits;
    bool toFile = false;
    bool finished = false;
    std::exception_ptr failure;

    std::vector<const cls_ClassMetadata*> classes;
    std::unordered_map<unsigned, std::uint32_t> classPlaces; // by type id
    idb_ByteChunks objects;
    std::uint32_t objectCount = 0;
    std::vector<Root> roots;
    std::unordered_set<cow_String> rootNames;
    std::unordered_map<const void*, std::uint32_t> numbers; // by body
    std::vector<std::shared_ptr<const void>> kept;
    std::vector<std::uint32_t> heights; // by number, from 1

    std::deque<idb_WriteFrame> frames; // by depth
    std::size_t depth = 0;

    std::vector<unsigned char> bytes;

    // What fails once has failed for good.
    template <class F>
    void Try(F write)
    {
        if (failure)
            std::rethrow_exception(failure);
        try
        {
            write();
        }
        catch (...)
        {
            failure = std::current_exception();
            throw;
        }
    }

    [[noreturn]] static void RefuseLimit(const char* limit)
    {
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::WRITE_LIMIT, limit);
    }
};

idb_MementoWrite::idb_MementoWrite(const idb_MementoLimits& limits) : body_(std::make_unique<Body>())
{
    body_->limits = limits;
}

idb_MementoWrite::idb_MementoWrite(const cow_String& path, const idb_MementoLimits& limits)
    : idb_MementoWrite(limits)
{
    body_->path = path;
    body_->toFile = true;
}

idb_MementoWrite::~idb_MementoWrite() = default;

void idb_MementoWrite::Finish()
{
    body_->Try([&] {
        if (!body_->finished)
            Assemble();
        body_->finished = true;
    });
}

const std::vector<unsigned char>& idb_MementoWrite::Bytes() const
{
    if (!body_->finished)
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::NOT_FINISHED);
    return body_->bytes;
}

std::vector<unsigned char> idb_MementoWrite::TakeBytes()
{
    static_cast<void>(Bytes());
    return std::move(body_->bytes);
}

std::uint32_t idb_MementoWrite::Write(const cls_ObjectSource& source)
{
    if (source.IsNull())
        return 0;
    const std::uint32_t number = WriteOnce(source);
    if (body_->depth > 0)
        body_->frames[body_->depth - 1].SetHeightAbove(body_->heights[number - 1]);
    return number;
}

std::uint32_t idb_MementoWrite::WriteOnce(const cls_ObjectSource& source)
{
    Body& body = *body_;
    std::uint32_t* number = nullptr;
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    if (!source.IsByValue())
    {
        const auto [place, isNew] = body.numbers.try_emplace(source.Body(), UNDER_WAY);
        if (!isNew && place->second == UNDER_WAY)
            idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::WRITE_CYCLIC,
                             registrar.NameOf(source.TypeId()));
        if (!isNew)
            return place->second;
        number = &place->second; // which stays where it is, whatever is added
        if (std::shared_ptr<const void> share = source.Keep())
            body.kept.push_back(std::move(share));
    }
    if (body.depth == body.limits.depth)
        Body::RefuseLimit(idb_Fault::DEPTH);
    while (body.frames.size() <= body.depth)
        body.frames.emplace_back(*this);
    idb_WriteFrame& frame = body.frames[body.depth];

    // Depth need not come back after an exception: the memento has failed.
    ++body.depth;
    const idb_PartWriter& writer = frame.Begin();
    source.Write(writer);
    const cls_ClassMetadata* const record = writer.Record();
    const auto refuse = [&](int line, const char* message, const auto&... more) {
        const cow_String name = registrar.NameOf(source.TypeId());
        idb_Fault::Raise(SOURCE, line, {.className = name}, message, name, more...);
    };
    if (record == nullptr)
        refuse(__LINE__, idb_Fault::NOT_ANNOUNCED, idb_Fault::Hexadecimal(source.TypeId()));
    // What is announced counts: constants of enumerations without metadata are stored as plain constants. A
    // class with metadata of its own would come back as another one.
    if (record->TypeId() != source.TypeId() && registrar.Find(source.TypeId()) != nullptr)
        refuse(__LINE__, idb_Fault::WRITES_AS, idb_Fault::Hexadecimal(source.TypeId()), record->Name());
    if (record->Adapter() == nullptr || record->Adapter()->IsAbstract())
        idb_Fault::Raise(SOURCE, __LINE__, {.className = registrar.NameOf(source.TypeId())},
                         idb_Fault::WRITE_ABSTRACT, record->Name(), idb_Fault::Hexadecimal(record->TypeId()));
    frame.End();
    if (frame.Stream().Failed())
        refuse(__LINE__, idb_Fault::INCOMPLETE);
    --body.depth;
    // A reader may come to the object from its highest owner, and builds all below it at one time.
    if (frame.Height() > body.limits.depth)
        Body::RefuseLimit(idb_Fault::DEPTH);
    body.heights.push_back(frame.Height());

    if (body.objectCount == body.limits.objects)
        Body::RefuseLimit(idb_Fault::OBJECTS);
    ++body.objectCount;
    unsigned char head[Format::OBJECT_HEAD_BYTES];
    bio_Store(bio_Store(bio_Store(head, body.objectCount), writer.ClassIndex()),
              static_cast<std::uint64_t>(frame.Length()));
    body.objects.Append(std::span<const unsigned char>(head));
    body.objects.Append(frame.Stream(), frame.Runs());
    if (body.objects.Length() > body.limits.bytes)
        Body::RefuseLimit(idb_Fault::TOTAL_BYTES);
    if (number != nullptr)
        *number = body.objectCount;
    return body.objectCount;
}

std::uint32_t idb_MementoWrite::ClassIndex(unsigned typeId, const cls_ClassMetadata*& record)
{
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    record = registrar.Find(typeId);
    if (record == nullptr)
    {
        const cow_String name = registrar.NameOf(typeId);
        idb_Fault::Raise(SOURCE, __LINE__, {.className = name}, idb_Fault::NO_METADATA, name,
                         idb_Fault::Hexadecimal(typeId));
    }
    if (const auto place = body_->classPlaces.find(typeId); place != body_->classPlaces.end())
        return place->second;
    // Parents first, as far as they are known and however they are declared.
    std::vector<const cls_ClassMetadata*> line;
    for (const cls_ClassMetadata* at = record; at != nullptr && !body_->classPlaces.contains(at->TypeId()) &&
                                               std::find(line.begin(), line.end(), at) == line.end();
         at = registrar.Find(at->ParentTypeId()))
        line.push_back(at);
    for (auto at = line.rbegin(); at != line.rend(); ++at)
    {
        RequireText((*at)->Name());
        for (const cls_Attribute& attribute : (*at)->Attributes())
            RequireText(attribute.name);
        if ((*at)->Attributes().size() > body_->limits.attributes)
            Body::RefuseLimit(idb_Fault::ATTRIBUTES);
        body_->classPlaces.emplace((*at)->TypeId(), static_cast<std::uint32_t>(body_->classes.size()));
        body_->classes.push_back(*at);
    }
    if (body_->classes.size() > body_->limits.classes)
        Body::RefuseLimit(idb_Fault::CLASSES);
    return body_->classPlaces.at(typeId);
}

void idb_MementoWrite::RequireText(const cow_String& text) const
{
    if (static_cast<std::uint64_t>(text.Length()) > body_->limits.text)
        Body::RefuseLimit(idb_Fault::TEXT_LENGTH);
}

void idb_MementoWrite::RequireParts(std::size_t count) const
{
    if (count > body_->limits.depth)
        Body::RefuseLimit(idb_Fault::DEPTH);
}

void idb_MementoWrite::RequireName(const cow_String& name) const
{
    if (name.View().find('\0') != std::string_view::npos)
        body_->Try([&] { idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::NAME_WITH_ZERO, name); });
}

void idb_MementoWrite::Assemble()
{
    Body& body = *body_;
    body.kept.clear();
    bio_Ofilter classes;
    classes.Write(static_cast<std::uint32_t>(body.classes.size()));
    for (const cls_ClassMetadata* record : body.classes)
    {
        classes.Write(record->TypeId());
        classes.Write(record->Name());
        classes.Write(record->Version());
        classes.Write(record->ParentTypeId());
        classes.Write(static_cast<std::uint32_t>(record->Attributes().size()));
        for (const cls_Attribute& attribute : record->Attributes())
        {
            classes.Write(attribute.name);
            classes.Write(static_cast<std::uint16_t>(attribute.type));
            classes.Write(attribute.typeId);
            classes.Write(static_cast<std::uint16_t>(attribute.collection));
        }
    }
    bio_Ofilter roots;
    roots.Write(static_cast<std::uint32_t>(body.roots.size()));
    for (const Root& root : body.roots)
    {
        roots.Write(root.name);
        roots.Write(root.number);
    }

    // The objects lie in pieces of their own, between `front` and `back`.
    constexpr std::size_t AROUND = Format::SECTION_HEAD_BYTES + Format::CHECKSUM_BYTES;
    constexpr std::size_t END_BYTES = sizeof(std::uint32_t) + sizeof(std::uint64_t);
    const std::uint64_t total = Format::HEADER_BYTES + 4 * AROUND + classes.Position() +
                                sizeof(std::uint32_t) + body.objects.Length() + roots.Position() + END_BYTES;
    if (total > body.limits.bytes)
        Body::RefuseLimit(idb_Fault::TOTAL_BYTES);
    Format::Digest digest;
    bio_Ofilter front;
    front.WriteRaw(Format::MAGIC.data(), Format::MAGIC.size());
    front.Write(Format::MAJOR);
    front.Write(Format::MINOR);
    front.Write(std::uint32_t{0});
    front.Write(total);
    const std::uint32_t header = bio_Crc32c(front.Bytes());
    front.Write(header);
    digest.Add(header);
    digest.Add(WriteSection(front, Format::CLASSES, classes));
    const std::size_t begin = front.Position();
    WriteSectionHead(front, Format::OBJECTS, sizeof(std::uint32_t) + body.objects.Length());
    front.Write(body.objectCount);
    std::uint32_t checksum = bio_Crc32c(std::span(front.Bytes()).subspan(begin));
    if (body.toFile)
        checksum = body.objects.Checksum(checksum);
    else
    {
        body.bytes.reserve(total);
        body.bytes.assign(front.Bytes().begin(), front.Bytes().end());
        checksum = body.objects.MoveTo(body.bytes, checksum);
    }
    bio_Ofilter back;
    back.Write(checksum);
    digest.Add(checksum);
    digest.Add(WriteSection(back, Format::ROOTS, roots));
    bio_Ofilter end;
    end.Write(body.objectCount);
    end.Write(digest.Value());
    WriteSection(back, Format::END, end);

    if (!body.toFile)
    {
        body.bytes.insert(body.bytes.end(), back.Bytes().begin(), back.Bytes().end());
        return;
    }
    std::vector<std::span<const unsigned char>> pieces = body.objects.Pieces();
    pieces.insert(pieces.begin(), std::span<const unsigned char>(front.Bytes()));
    pieces.emplace_back(back.Bytes());
    idb_WholeFile::Write(body.path, pieces);
}

bool idb_MementoWrite::CheckCollectionType(cls_CollectionType asked, const cow_String& name) const
{
    const idb_PartWriter* const part = body_->depth > 0 ? body_->frames[body_->depth - 1].Open() : nullptr;
    const cls_Attribute* const attribute = part != nullptr ? part->Record()->FindAttribute(name) : nullptr;
    const cls_CollectionType declared =
        attribute != nullptr ? attribute->collection : cls_CollectionType::SINGLE;
    if (cls_CollectionsMatch(declared, asked))
        return true;
    std::fprintf(stderr, COLLECTION_TYPES, static_cast<int>(declared), static_cast<int>(asked),
                 name.AsCharPtr());
    return false;
}

template <class W, class... Arguments>
W* idb_MementoWrite::MakeCollection(Arguments... arguments)
{
    if (body_->depth == 0)
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::NOTHING_WRITTEN);
    idb_WriteFrame& frame = body_->frames[body_->depth - 1];
    auto writer = std::make_unique<W>(frame.Stream(), arguments...);
    W* const made = writer.get();
    frame.Collection() = std::move(writer);
    return made;
}

template <idb_ListElement T>
idb_WriteListPrim<T>* idb_MementoWrite::MakeWriteListPrim(const T&, int columns)
{
    return MakeCollection<idb_WriteListPrim<T>>(columns);
}
template <idb_MapElement T>
idb_WriteMapInt2Prim<T>* idb_MementoWrite::MakeWriteMapInt2Prim(const T&)
{
    return MakeCollection<idb_WriteMapInt2Prim<T>>();
}
template <idb_MapElement T>
idb_WriteMapString2Prim<T>* idb_MementoWrite::MakeWriteMapString2Prim(const T&)
{
    return MakeCollection<idb_WriteMapString2Prim<T>>();
}
// Every element type there is.
template OXU_EXPORT idb_WriteListPrim<bool>* idb_MementoWrite::MakeWriteListPrim(const bool&, int);
template OXU_EXPORT idb_WriteListPrim<int>* idb_MementoWrite::MakeWriteListPrim(const int&, int);
template OXU_EXPORT idb_WriteListPrim<unsigned>* idb_MementoWrite::MakeWriteListPrim(const unsigned&, int);
template OXU_EXPORT idb_WriteListPrim<float>* idb_MementoWrite::MakeWriteListPrim(const float&, int);
template OXU_EXPORT idb_WriteListPrim<double>* idb_MementoWrite::MakeWriteListPrim(const double&, int);
template OXU_EXPORT idb_WriteListPrim<cow_String>* idb_MementoWrite::MakeWriteListPrim(const cow_String&,
                                                                                       int);
template OXU_EXPORT idb_WriteMapInt2Prim<int>* idb_MementoWrite::MakeWriteMapInt2Prim(const int&);
template OXU_EXPORT idb_WriteMapInt2Prim<unsigned>* idb_MementoWrite::MakeWriteMapInt2Prim(const unsigned&);
template OXU_EXPORT idb_WriteMapInt2Prim<float>* idb_MementoWrite::MakeWriteMapInt2Prim(const float&);
template OXU_EXPORT idb_WriteMapInt2Prim<double>* idb_MementoWrite::MakeWriteMapInt2Prim(const double&);
template OXU_EXPORT idb_WriteMapInt2Prim<cow_String>*
idb_MementoWrite::MakeWriteMapInt2Prim(const cow_String&);
template OXU_EXPORT idb_WriteMapString2Prim<int>* idb_MementoWrite::MakeWriteMapString2Prim(const int&);
template OXU_EXPORT idb_WriteMapString2Prim<unsigned>*
idb_MementoWrite::MakeWriteMapString2Prim(const unsigned&);
template OXU_EXPORT idb_WriteMapString2Prim<float>* idb_MementoWrite::MakeWriteMapString2Prim(const float&);
template OXU_EXPORT idb_WriteMapString2Prim<double>* idb_MementoWrite::MakeWriteMapString2Prim(const double&);
template OXU_EXPORT idb_WriteMapString2Prim<cow_String>*
idb_MementoWrite::MakeWriteMapString2Prim(const cow_String&);

idb_WriteListObj* idb_MementoWrite::MakeWriteListObj()
{
    return MakeCollection<idb_WriteListObj>();
}
idb_WriteMapInt2Obj* idb_MementoWrite::MakeWriteMapInt2Obj()
{
    return MakeCollection<idb_WriteMapInt2Obj>();
}
idb_WriteMapString2Obj* idb_MementoWrite::MakeWriteMapString2Obj()
{
    return MakeCollection<idb_WriteMapString2Obj>();
}

namespace
{
[[noreturn]] void RefuseValue(const cow_String& name)
{
    idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::NO_OBJECT, name);
}
}

void idb_MementoWrite::PutObject(const cls_FieldHandle& field, const cls_ObjectSource& object) const
{
    Body& body = *body_;
    body.Try([&] {
        const cow_String name = field.name;
        if (body.finished)
            idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::FINISHED);
        if (!body.rootNames.insert(name).second)
            idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::WRITE_NAME_TWICE, name);
        RequireText(name);
        if (body.roots.size() == body.limits.objects)
            Body::RefuseLimit(idb_Fault::OBJECTS);
        // Writing changes what lies behind the visitor.
        body.roots.push_back({name, const_cast<idb_MementoWrite*>(this)->Write(object)});
    });
}

bool idb_MementoWrite::Announce(unsigned typeId, const cls_Uid&) const
{
    RefuseValue(cls_MetadataRegistrar::Instance().Registrar().NameOf(typeId));
}
const cls_WriteVisitor& idb_MementoWrite::BaseWriter() const
{
    RefuseValue("a base part");
}
void idb_MementoWrite::WriteBool(const cls_FieldHandle& field, bool) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::WriteChar(const cls_FieldHandle& field, char) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::WriteInt(const cls_FieldHandle& field, int) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::WriteFloat(const cls_FieldHandle& field, float) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::WriteDouble(const cls_FieldHandle& field, double) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::WriteString(const cls_FieldHandle& field, const cow_String&) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::WriteMessage(const cls_FieldHandle& field, const atr_String&) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::WriteEnum(const cls_FieldHandle& field, const cow_String&) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::PutList(const cls_FieldHandle& field, const cls_PrimSpan&, int) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::PutObjectList(const cls_FieldHandle& field, std::span<const cls_ObjectSource>) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::PutMap(const cls_FieldHandle& field, const cls_KeySpan&, const cls_PrimSpan&) const
{
    RefuseValue(field.name);
}
void idb_MementoWrite::PutObjectMap(const cls_FieldHandle& field, const cls_KeySpan&,
                                    std::span<const cls_ObjectSource>) const
{
    RefuseValue(field.name);
}
