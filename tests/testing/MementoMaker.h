#pragma once

// Mementos made by hand, byte by byte, to test what no writer of ours writes.
//
//     MementoMaker maker;
//     maker.Class(gsl_Segment::TypeId(), "gsl_Segment", 800, 1, {{"_point1", 15, 0x30A0001, 0}});
//     maker.Object(0, {{0, {{0, 15, 0, Payload(0u)}}}});
//     maker.Root("a", 1);
//     const Bytes bytes = maker.Make();

#include <bio_Crc32c.h>
#include <bio_Ifilter.h>
#include <bio_Ofilter.h>
#include <idb_MementoFormat.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

using Bytes = std::vector<unsigned char>;

/// Values one behind the other, as a stream encodes them.
template <class... T>
Bytes Payload(const T&... values)
{
    bio_Ofilter out;
    (out.Write(values), ...);
    return out.Take();
}

/// Makes the lengths, checksums and the digest of a memento right after its bytes were changed, as far as its
/// sections can be followed.
inline void Reseal(Bytes& bytes)
{
    namespace Format = idb_MementoFormat;
    const auto put = [&bytes](std::size_t at, const auto& value) {
        std::memcpy(&bytes[at], &value, sizeof value);
    };
    const auto checksum = [&bytes](std::size_t at, std::size_t length) {
        return bio_Crc32c(std::span(bytes).subspan(at, length));
    };
    if (bytes.size() < Format::HEADER_BYTES)
        return;
    put(Format::TOTAL_LENGTH_AT, static_cast<std::uint64_t>(bytes.size()));
    Format::Digest digest;
    const std::size_t headEnd = Format::HEADER_BYTES - Format::CHECKSUM_BYTES;
    put(headEnd, checksum(0, headEnd));
    digest.Add(checksum(0, headEnd));
    for (std::size_t at = Format::HEADER_BYTES; bytes.size() - at >= Format::SECTION_HEAD_BYTES + 4;)
    {
        std::uint64_t length = 0;
        std::memcpy(&length, &bytes[at + Format::SECTION_LENGTH_AT], sizeof length);
        const std::uint64_t most = bytes.size() - at - Format::SECTION_HEAD_BYTES - Format::CHECKSUM_BYTES;
        if (length > most)
            put(at + Format::SECTION_LENGTH_AT, length = most);
        if (std::memcmp(&bytes[at], Format::END, Format::TAG_BYTES) == 0 && length == 12)
            put(at + Format::SECTION_HEAD_BYTES + 4, digest.Value());
        const std::size_t end = at + Format::SECTION_HEAD_BYTES + static_cast<std::size_t>(length);
        put(end, checksum(at, end - at));
        digest.Add(checksum(at, end - at));
        at = end + Format::CHECKSUM_BYTES;
    }
}

class MementoMaker
{
public:
    struct Declared
    {
        const char* name;
        std::uint16_t type;
        std::uint32_t typeId;
        std::uint16_t collection;
    };
    struct Attribute
    {
        std::uint16_t index;
        std::uint16_t type;
        std::uint16_t collection;
        Bytes payload;
    };
    struct Part
    {
        std::uint32_t classIndex;
        std::vector<Attribute> attributes;
        unsigned char uid = 7; ///< all sixteen bytes
    };

    void Class(std::uint32_t typeId, const char* name, std::uint32_t version, std::uint32_t parent,
               const std::vector<Declared>& attributes)
    {
        Add(classes_, typeId, cow_String(name), version, parent,
            static_cast<std::uint32_t>(attributes.size()));
        for (const Declared& one : attributes)
            Add(classes_, cow_String(one.name), one.type, one.typeId, one.collection);
        ++classCount;
    }
    /// `number` 0 is the next one.
    void Object(std::uint32_t classIndex, const std::vector<Part>& parts, std::uint32_t number = 0)
    {
        bio_Ofilter body;
        for (const Part& part : parts)
        {
            bio_Ofilter inner;
            for (const Attribute& one : part.attributes)
            {
                Add(inner, one.index, one.type, one.collection, std::uint64_t{one.payload.size()});
                inner.WriteRaw(one.payload.data(), one.payload.size());
            }
            const Bytes uid(16, part.uid);
            body.Write(part.classIndex);
            body.WriteRaw(uid.data(), uid.size());
            Add(body, std::uint64_t{inner.Position() + 4},
                static_cast<std::uint32_t>(part.attributes.size()));
            body.WriteRaw(inner.Bytes().data(), inner.Position());
        }
        ++objectCount;
        Add(objects_, number != 0 ? number : objectCount, classIndex, std::uint64_t{body.Position()});
        objects_.WriteRaw(body.Bytes().data(), body.Position());
    }
    void Root(const char* name, std::uint32_t number)
    {
        Add(roots_, cow_String(name), number);
        ++rootCount;
    }
    /// A section of any tag before ENDM.
    void Section(const char* tag, std::uint32_t flags, const Bytes& payload)
    {
        bio_Ofilter out;
        out.WriteRaw(tag, 4);
        Add(out, flags, std::uint64_t{payload.size()});
        out.WriteRaw(payload.data(), payload.size());
        out.Write(std::uint32_t{0});
        more_.push_back(out.Take());
    }

    Bytes Make()
    {
        namespace Format = idb_MementoFormat;
        const std::vector<Bytes> extra = std::exchange(more_, {});
        Section(Format::CLASSES, 1, Counted(classCount, classes_));
        Section(Format::OBJECTS, 1, Counted(objectCount, objects_));
        Section(Format::ROOTS, 1, Counted(rootCount, roots_));
        more_.insert(more_.end(), extra.begin(), extra.end());
        Section(Format::END, 1, Payload(objectCount, std::uint64_t{0}));
        bio_Ofilter out;
        out.WriteRaw(Format::MAGIC.data(), Format::MAGIC.size());
        Add(out, majorFormat, minorFormat, std::uint32_t{0}, std::uint64_t{0}, std::uint32_t{0});
        for (const Bytes& section : more_)
            out.WriteRaw(section.data(), section.size());
        Bytes bytes = out.Take();
        Reseal(bytes);
        return bytes;
    }

    // What is written as the counts and the format, whatever was added.
    std::uint32_t classCount = 0;
    std::uint32_t objectCount = 0;
    std::uint32_t rootCount = 0;
    std::uint16_t majorFormat = 1;
    std::uint16_t minorFormat = 0;

private:
    template <class... T>
    static void Add(bio_Ofilter& out, const T&... values)
    {
        (out.Write(values), ...);
    }
    static Bytes Counted(std::uint32_t count, const bio_Ofilter& items)
    {
        bio_Ofilter out;
        out.Write(count);
        out.WriteRaw(items.Bytes().data(), items.Position());
        return out.Take();
    }

    bio_Ofilter classes_;
    bio_Ofilter objects_;
    bio_Ofilter roots_;
    std::vector<Bytes> more_;
};
