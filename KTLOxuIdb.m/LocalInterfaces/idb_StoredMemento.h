#pragma once

#include <bio_Ifilter.h>
#include <cls_AttributeType.h>
#include <cls_CollectionType.h>
#include <cow_List.h>
#include <cow_String.h>
#include <idb_Budget.h>
#include <idb_MementoFormat.h>
#include <idb_MementoLimits.h>

#include <cstdint>
#include <cstring>
#include <span>
#include <unordered_map>
#include <vector>

class cls_ClassMetadata;

struct idb_StoredAttribute
{
    cow_String name;
    unsigned type = 0;
    unsigned typeId = 0;
    unsigned collection = 0;

    bool IsNamed(const char* other) const { return isPlain && std::strcmp(name.AsCharPtr(), other) == 0; }
    bool isPlain = true; ///< the name has no zero byte
};

/// A class as the memento describes it, and what the registrar knows under its type id: null for nothing.
struct idb_StoredClass
{
    unsigned typeId = 0;
    cow_String name;
    unsigned version = 0;
    unsigned parentTypeId = 0;
    std::vector<idb_StoredAttribute> attributes;
    std::size_t firstAttribute = 0; ///< how many the classes before it have
    const cls_ClassMetadata* record = nullptr;
};

/// Where the body of an object lies.
struct idb_StoredObject
{
    std::uint64_t at = 0;
    std::uint64_t length = 0;
    std::uint32_t classIndex = 0;
    bool present = false;
};

struct idb_StoredRoot
{
    cow_String name;
    std::uint32_t number = 0;
};

struct idb_StoredSection
{
    cow_String tag;
    std::uint64_t at = 0;
    std::uint64_t length = 0; ///< of the payload
};

/// The bytes of a memento taken apart and checked, down to the bodies of its objects, which are checked when
/// they are read. Looks at the bytes; their owner keeps them alive. Everything that is wrong raises
/// idb_MementoException.
class idb_StoredMemento
{
public:
    idb_StoredMemento(std::span<const unsigned char> bytes, const idb_MementoLimits& limits);

    std::uint16_t Major() const { return major_; }
    std::uint16_t Minor() const { return minor_; }
    std::uint64_t Bytes() const { return bytes_.size(); }
    const std::vector<idb_StoredSection>& Sections() const { return sections_; }
    const std::vector<idb_StoredClass>& Classes() const { return classes_; }
    /// Of all classes together.
    std::size_t AttributeCount() const
    {
        return classes_.empty() ? 0 : classes_.back().firstAttribute + classes_.back().attributes.size();
    }
    std::uint32_t ObjectCount() const { return static_cast<std::uint32_t>(objects_.size()); }
    /// By number, from 1 to ObjectCount().
    const idb_StoredObject& Object(std::uint32_t number) const { return objects_[number - 1]; }
    const idb_StoredClass& ClassOf(std::uint32_t number) const { return classes_[Object(number).classIndex]; }
    /// The body, which reports positions in the memento.
    bio_Ifilter Body(std::uint32_t number) const;
    /// In stored order.
    const std::vector<idb_StoredRoot>& Roots() const { return roots_; }
    /// Null where there is no object of that name.
    const idb_StoredRoot* FindRoot(const cow_String& name) const;
    /// What its tables have left of what reading the memento may allocate.
    idb_Budget& Budget() { return budget_; }
    /// What is odd and does no harm, a sentence each.
    const cow_List<cow_String>& Warnings() const { return warnings_; }

private:
    bio_Ifilter ReadHeader();
    void ReadSection(bio_Ifilter& in);
    void ReadClasses(bio_Ifilter in);
    void ReadObjects(bio_Ifilter in);
    void ReadRoots(bio_Ifilter in);
    void ReadEnd(bio_Ifilter in, std::uint64_t at);
    cow_String ReadText(bio_Ifilter& in);

    std::span<const unsigned char> bytes_;
    idb_MementoLimits limits_;
    idb_Budget budget_;
    std::uint16_t major_ = 0;
    std::uint16_t minor_ = 0;
    std::size_t next_ = 0; // of the known sections, the one to come
    idb_MementoFormat::Digest digest_;
    std::vector<idb_StoredSection> sections_;
    std::vector<idb_StoredClass> classes_;
    std::vector<idb_StoredObject> objects_;
    std::vector<idb_StoredRoot> roots_;
    std::unordered_map<cow_String, std::size_t> rootPlaces_;
    cow_List<cow_String> warnings_;
};
