#include <bio_Crc32c.h>
#include <bio_DataException.h>
#include <cls_MetadataRegistrar.h>
#include <idb_Fault.h>
#include <idb_MementoFormat.h>
#include <idb_StoredMemento.h>

#include <algorithm>
#include <unordered_set>

namespace
{
namespace Format = idb_MementoFormat;
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_StoredMemento";

// In their order.
constexpr const char* KNOWN[] = {Format::CLASSES, Format::OBJECTS, Format::ROOTS, Format::END};

constexpr const char* MINOR_WARNING = "format %d.%d is newer than %d.%d";
constexpr const char* SECTION_WARNING = "section %s at byte %d is not known and was skipped";
constexpr const char* VERSION_WARNING = "class %s has version %d, newer than the known %d";

// What tables cost beside their entries, estimated from above: a body of text, a node in a set of names; the
// entry of a section and what is said of one that is not known.
constexpr std::uint64_t NAME_COST = 96;
constexpr std::uint64_t SECTION_COST = 256;

template <class... Arguments>
[[noreturn]] void Refuse(int line, std::uint64_t byte, const char* messageTemplate,
                         const Arguments&... arguments)
{
    idb_Fault::Raise(SOURCE, line, {.byte = static_cast<std::int64_t>(byte)}, messageTemplate, arguments...);
}

using idb_Fault::Text;

void RequireEnd(const bio_Ifilter& in)
{
    if (in.Left() != 0)
        Refuse(__LINE__, in.Position(), idb_Fault::DATA_GOES_ON, Text(in.Position()), Text(in.Left()));
}

[[noreturn]] void RefuseLimit(std::uint64_t byte, const char* limit)
{
    Refuse(__LINE__, byte, idb_Fault::READ_LIMIT, limit);
}

// A count that begins a list of things of at least `bytesEach` bytes.
std::uint32_t ReadCount(bio_Ifilter& in, std::size_t bytesEach, std::uint64_t limit, const char* what)
{
    std::uint32_t count = 0;
    in.Read(count);
    if (count > limit)
        RefuseLimit(in.Position() - sizeof count, what);
    in.Require(count, bytesEach);
    return count;
}

// The bytes of a tag as they are shown: what cannot be printed as "?".
cow_String Shown(const char (&tag)[Format::TAG_BYTES])
{
    char shown[Format::TAG_BYTES];
    std::transform(std::begin(tag), std::end(tag), shown,
                   [](char c) { return c > ' ' && c <= '~' ? c : '?'; });
    return cow_String(shown, sizeof shown);
}
}

idb_StoredMemento::idb_StoredMemento(std::span<const unsigned char> bytes, const idb_MementoLimits& limits)
    : bytes_(bytes), limits_(limits), budget_(limits, bytes.size())
{
    try
    {
        bio_Ifilter in = ReadHeader();
        while (in.Left() != 0)
            ReadSection(in);
    }
    catch (const bio_DataException& fault)
    {
        Refuse(__LINE__, fault.Position(), idb_Fault::BAD_DATA, fault.UserReport());
    }
    if (next_ < std::size(KNOWN))
        Refuse(__LINE__, bytes_.size(), idb_Fault::SECTION_MISSING, KNOWN[next_]);
}

bio_Ifilter idb_StoredMemento::ReadHeader()
{
    if (bytes_.size() < Format::MAGIC.size() ||
        !std::equal(Format::MAGIC.begin(), Format::MAGIC.end(), bytes_.begin()))
        Refuse(__LINE__, 0, idb_Fault::NOT_A_MEMENTO);
    if (bytes_.size() > limits_.bytes)
        RefuseLimit(0, idb_Fault::TOTAL_BYTES);
    bio_Ifilter in(bytes_);
    in.Skip(Format::MAGIC.size());
    in.Read(major_);
    in.Read(minor_);
    in.Skip(sizeof(std::uint32_t));
    std::uint64_t total = 0;
    in.Read(total);
    std::uint32_t checksum = 0;
    in.Read(checksum);
    if (checksum != bio_Crc32c(bytes_.first(Format::HEADER_BYTES - Format::CHECKSUM_BYTES)))
        Refuse(__LINE__, 0, idb_Fault::BAD_CHECKSUM, "header", 0);
    digest_.Add(checksum);
    if (major_ > Format::MAJOR || major_ == 0)
        Refuse(__LINE__, Format::MAGIC.size(), idb_Fault::TOO_NEW, int{major_}, int{minor_},
               int{Format::MAJOR}, int{Format::MINOR});
    if (minor_ > Format::MINOR)
        warnings_.Append(oxu_FormatMessage(MINOR_WARNING, int{major_}, int{minor_}, int{Format::MAJOR},
                                           int{Format::MINOR}));
    if (bytes_.size() < total)
        Refuse(__LINE__, bytes_.size(), idb_Fault::DATA_ENDS, Text(bytes_.size()),
               Text(total - bytes_.size()));
    if (bytes_.size() > total)
        Refuse(__LINE__, total, idb_Fault::DATA_GOES_ON, Text(total), Text(bytes_.size() - total));
    return in;
}

void idb_StoredMemento::ReadSection(bio_Ifilter& in)
{
    const std::uint64_t at = in.Position();
    const std::span<const unsigned char> whole = in.Rest();
    char tagBytes[Format::TAG_BYTES];
    in.ReadRaw(tagBytes, sizeof tagBytes);
    std::uint32_t flags = 0;
    std::uint64_t length = 0;
    in.Read(flags);
    in.Read(length);
    in.Require(length, 1);
    const bio_Ifilter payload = in.Sub(length);
    std::uint32_t checksum = 0;
    in.Read(checksum);
    const cow_String tag = Shown(tagBytes);
    if (checksum != bio_Crc32c(whole.first(Format::SECTION_HEAD_BYTES + length)))
        Refuse(__LINE__, at, idb_Fault::BAD_CHECKSUM, tag, Text(at));

    const bool known = std::find(std::begin(KNOWN), std::end(KNOWN), tag) != std::end(KNOWN);
    if (next_ == std::size(KNOWN))
        Refuse(__LINE__, at, idb_Fault::DATA_GOES_ON, Text(at), Text(bytes_.size() - at));
    if (known && !(tag == KNOWN[next_]))
        Refuse(__LINE__, at, idb_Fault::SECTION_PLACE, tag, Text(at), KNOWN[next_]);
    budget_.Charge(SECTION_COST);
    sections_.push_back({tag, at, length});
    if (!known)
    {
        if ((flags & Format::MUST_UNDERSTAND) != 0)
            Refuse(__LINE__, at, idb_Fault::SECTION_UNKNOWN, tag, Text(at));
        warnings_.Append(oxu_FormatMessage(SECTION_WARNING, tag, Text(at)));
    }
    else
    {
        switch (next_++)
        {
        case 0:
            ReadClasses(payload);
            break;
        case 1:
            ReadObjects(payload);
            break;
        case 2:
            ReadRoots(payload);
            break;
        default:
            ReadEnd(payload, at);
        }
    }
    digest_.Add(checksum);
}

void idb_StoredMemento::ReadClasses(bio_Ifilter in)
{
    // Type id, name, version, parent, attribute count; name, type, type id, collection.
    constexpr std::size_t CLASS_BYTES = 20;
    constexpr std::size_t ATTRIBUTE_BYTES = 12;
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    std::unordered_set<unsigned> ids;
    const std::uint32_t count = ReadCount(in, CLASS_BYTES, limits_.classes, idb_Fault::CLASSES);
    budget_.Charge(count, sizeof(idb_StoredClass) + NAME_COST);
    classes_.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i)
    {
        const std::uint64_t at = in.Position();
        const std::size_t attributesBefore = AttributeCount();
        idb_StoredClass& stored = classes_.emplace_back();
        stored.firstAttribute = attributesBefore;
        in.Read(stored.typeId);
        stored.name = ReadText(in);
        in.Read(stored.version);
        in.Read(stored.parentTypeId);
        if (!ids.insert(stored.typeId).second)
            Refuse(__LINE__, at, idb_Fault::CLASS_TWICE, stored.name, idb_Fault::Hexadecimal(stored.typeId),
                   Text(at));
        std::unordered_set<cow_String> names;
        const std::uint32_t attributes =
            ReadCount(in, ATTRIBUTE_BYTES, limits_.attributes, idb_Fault::ATTRIBUTES);
        budget_.Charge(attributes, sizeof(idb_StoredAttribute) + NAME_COST);
        stored.attributes.reserve(attributes);
        for (std::uint32_t k = 0; k < attributes; ++k)
        {
            const std::uint64_t nameAt = in.Position();
            idb_StoredAttribute& attribute = stored.attributes.emplace_back();
            std::uint16_t type = 0;
            std::uint16_t collection = 0;
            attribute.name = ReadText(in);
            attribute.isPlain = attribute.name.View().find('\0') == std::string_view::npos;
            in.Read(type);
            in.Read(attribute.typeId);
            in.Read(collection);
            attribute.type = type;
            attribute.collection = collection;
            if (!names.insert(attribute.name).second)
                Refuse(__LINE__, nameAt, idb_Fault::NAME_TWICE, attribute.name, Text(nameAt));
        }
        stored.record = registrar.Find(stored.typeId);
        if (stored.record != nullptr && stored.version > stored.record->Version())
            warnings_.Append(oxu_FormatMessage(VERSION_WARNING, stored.name, Text(stored.version),
                                               Text(stored.record->Version())));
    }
    RequireEnd(in);
}

void idb_StoredMemento::ReadObjects(bio_Ifilter in)
{
    const std::uint32_t count = ReadCount(in, Format::OBJECT_HEAD_BYTES, limits_.objects, idb_Fault::OBJECTS);
    budget_.Charge(count, sizeof(idb_StoredObject));
    objects_.resize(count);
    for (std::uint32_t i = 0; i < count; ++i)
    {
        const std::uint64_t at = in.Position();
        std::uint32_t number = 0;
        in.Read(number);
        if (number < 1 || number > count)
            Refuse(__LINE__, at, idb_Fault::BAD_NUMBER, Text(number), Text(at), Text(count));
        idb_StoredObject& object = objects_[number - 1];
        if (object.present)
            Refuse(__LINE__, at, idb_Fault::NUMBER_TWICE, Text(number), Text(at));
        object.present = true;
        in.Read(object.classIndex);
        if (object.classIndex >= classes_.size())
            Refuse(__LINE__, at, idb_Fault::BAD_CLASS, Text(object.classIndex), Text(at),
                   Text(classes_.size()));
        in.Read(object.length);
        in.Require(object.length, 1);
        object.at = in.Position();
        in.Skip(object.length);
    }
    RequireEnd(in);
}

void idb_StoredMemento::ReadRoots(bio_Ifilter in)
{
    constexpr std::size_t ROOT_BYTES = 8;
    const std::uint32_t count = ReadCount(in, ROOT_BYTES, limits_.objects, idb_Fault::OBJECTS);
    budget_.Charge(count, sizeof(idb_StoredRoot) + NAME_COST);
    roots_.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i)
    {
        const std::uint64_t at = in.Position();
        idb_StoredRoot& root = roots_.emplace_back();
        root.name = ReadText(in);
        in.Read(root.number);
        if (root.number > ObjectCount())
            Refuse(__LINE__, at, idb_Fault::BAD_NUMBER, Text(root.number), Text(at), Text(ObjectCount()));
        if (!rootPlaces_.emplace(root.name, i).second)
            Refuse(__LINE__, at, idb_Fault::NAME_TWICE, root.name, Text(at));
    }
    RequireEnd(in);
}

void idb_StoredMemento::ReadEnd(bio_Ifilter in, std::uint64_t at)
{
    std::uint32_t count = 0;
    std::uint64_t stored = 0;
    in.Read(count);
    in.Read(stored);
    RequireEnd(in);
    if (count != ObjectCount())
        Refuse(__LINE__, at, idb_Fault::BAD_COUNT, Format::OBJECTS, Text(ObjectCount()), Text(count));
    if (stored != digest_.Value())
        Refuse(__LINE__, at, idb_Fault::BAD_DIGEST, Text(at));
}

cow_String idb_StoredMemento::ReadText(bio_Ifilter& in)
{
    const std::uint64_t at = in.Position();
    const auto length = static_cast<std::uint64_t>(bio_Ifilter(in).ReadCount(1));
    if (length > limits_.text)
        RefuseLimit(at, idb_Fault::TEXT_LENGTH);
    budget_.Charge(length);
    cow_String text;
    in.Read(text);
    return text;
}

bio_Ifilter idb_StoredMemento::Body(std::uint32_t number) const
{
    const idb_StoredObject& object = Object(number);
    return bio_Ifilter(bytes_.subspan(object.at, object.length), object.at);
}

const idb_StoredRoot* idb_StoredMemento::FindRoot(const cow_String& name) const
{
    const auto place = rootPlaces_.find(name);
    return place != rootPlaces_.end() ? &roots_[place->second] : nullptr;
}
