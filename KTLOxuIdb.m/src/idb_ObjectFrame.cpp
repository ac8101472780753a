#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <idb_Fault.h>
#include <idb_ObjectFrame.h>

#include <algorithm>
#include <cstring>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_ObjectFrame";
using idb_Fault::Text;

// What a vector may take while it grows, in lengths of its own.
constexpr std::size_t GROWTH = 3;
}

void idb_ObjectFrame::Open(idb_StoredMemento& stored, const idb_MementoLimits& limits, std::uint32_t number)
{
    stored_ = &stored;
    number_ = number;
    parts_.clear();
    attributes_.clear();
    bases_.resize(stored.Classes().size());
    const cow_String& name = Class().name;
    bio_Ifilter in = stored.Body(number);
    while (in.Left() != 0)
    {
        if (parts_.size() == limits.depth)
            idb_Fault::Raise(SOURCE, __LINE__, {static_cast<std::int64_t>(in.Position()), number, name},
                             idb_Fault::READ_LIMIT, idb_Fault::DEPTH);
        OpenPart(in);
        if (parts_.size() == 1)
            continue;
        const std::uint32_t baseIndex = parts_[parts_.size() - 2].classIndex;
        std::uint32_t& known = bases_[parts_.back().classIndex];
        if (known == baseIndex + 1)
            continue;
        const idb_StoredClass& own = ClassOf(parts_.back());
        const idb_StoredClass& base = ClassOf(parts_[parts_.size() - 2]);
        if (base.record != nullptr && !(base.record->Name() == base.name))
            idb_Fault::Raise(SOURCE, __LINE__, {static_cast<std::int64_t>(in.Position()), number, name},
                             idb_Fault::OTHER_NAME, Text(number), base.name,
                             idb_Fault::Hexadecimal(base.typeId), base.record->Name());
        if (own.typeId == base.typeId || base.typeId == cls_UniversalRoot ||
            !cls_MetadataRegistrar::Instance().Registrar().InheritanceCheck(own.typeId, base.typeId))
            idb_Fault::Raise(SOURCE, __LINE__, {static_cast<std::int64_t>(in.Position()), number, name},
                             idb_Fault::NO_BASE, Text(number), name, base.name, own.name);
        known = baseIndex + 1;
    }
    if (parts_.empty() || parts_.back().classIndex != stored.Object(number).classIndex)
        idb_Fault::Raise(SOURCE, __LINE__, {static_cast<std::int64_t>(in.Position()), number, name},
                         idb_Fault::BAD_LAST_PART, Text(number), name,
                         parts_.empty() ? cow_String("none") : ClassOf(parts_.back()).name);
    FindLevels();
}

// By class: an object that had nothing to store for one of its bases has no part there.
void idb_ObjectFrame::FindLevels()
{
    auto part = static_cast<int>(parts_.size()) - 1;
    levels_.assign(1, part);
    const cls_ClassMetadata* record = Class().record;
    while (--part >= 0)
    {
        const idb_StoredClass& stored = ClassOf(parts_[static_cast<std::size_t>(part)]);
        // Every part is of a class above that of the next one, so it is reached.
        for (; record->ParentTypeId() != stored.typeId;
             record = cls_MetadataRegistrar::Instance().Registrar().Find(record->ParentTypeId()))
            levels_.push_back(-1);
        levels_.push_back(part);
        record = stored.record;
    }
}

void idb_ObjectFrame::OpenPart(bio_Ifilter& in)
{
    const auto at = static_cast<std::int64_t>(in.Position());
    idb_StoredPart part;
    in.Read(part.classIndex);
    if (part.classIndex >= stored_->Classes().size())
        idb_Fault::Raise(SOURCE, __LINE__, {at, number_, Class().name}, idb_Fault::BAD_CLASS,
                         Text(part.classIndex), Text(at), Text(stored_->Classes().size()));
    const idb_StoredClass& partClass = ClassOf(part);
    cls_Uid::Bytes uid;
    std::memcpy(uid.data(), in.Take(uid.size()), uid.size());
    part.uid = cls_Uid(uid);
    std::uint64_t length = 0;
    in.Read(length);
    in.Require(length, 1);
    bio_Ifilter rest = in.Sub(length);
    std::uint32_t count = 0;
    rest.Read(count);
    part.firstAttribute = attributes_.size();
    part.attributeCount = count;
    idb_Budget& budget = stored_->Budget();
    budget.Charge(GROWTH * sizeof part);
    budget.Charge(std::min<std::uint64_t>(count, rest.Left() / idb_MementoFormat::ATTRIBUTE_HEAD_BYTES),
                  GROWTH * sizeof(idb_PartAttribute));
    ++partsSeen_;
    if (seen_.size() < partClass.attributes.size())
        seen_.resize(partClass.attributes.size());
    for (std::uint32_t i = 0; i < count; ++i)
    {
        const std::uint64_t attributeAt = rest.Position();
        const unsigned char* const head = rest.Take(idb_MementoFormat::ATTRIBUTE_HEAD_BYTES);
        idb_PartAttribute& attribute = attributes_.emplace_back();
        attribute.index = bio_Load<std::uint16_t>(head);
        attribute.type = bio_Load<std::uint16_t>(head + 2);
        attribute.collection = bio_Load<std::uint16_t>(head + 4);
        const auto bytes = bio_Load<std::uint64_t>(head + 6);
        rest.Require(bytes, 1);
        if (attribute.index >= partClass.attributes.size())
            idb_Fault::Raise(SOURCE, __LINE__,
                             {static_cast<std::int64_t>(attributeAt), number_, Class().name},
                             idb_Fault::BAD_ATTRIBUTE, Text(number_), Class().name, Text(attribute.index),
                             Text(attributeAt), Text(partClass.attributes.size()));
        if (std::exchange(seen_[attribute.index], partsSeen_) == partsSeen_)
            idb_Fault::Raise(SOURCE, __LINE__,
                             {static_cast<std::int64_t>(attributeAt), number_, Class().name},
                             idb_Fault::ATTRIBUTE_TWICE, Text(number_), Class().name,
                             partClass.attributes[attribute.index].name);
        attribute.payload = rest.Sub(bytes);
    }
    if (rest.Left() != 0)
        idb_Fault::Raise(SOURCE, __LINE__,
                         {static_cast<std::int64_t>(rest.Position()), number_, Class().name},
                         idb_Fault::DATA_GOES_ON, Text(rest.Position()), Text(rest.Left()));
    parts_.push_back(part);
}

const idb_PartAttribute* idb_ObjectFrame::Find(const idb_StoredPart& part, const cls_FieldHandle& field) const
{
    // Where the layout has not changed, the field's index is the place.
    const std::vector<idb_StoredAttribute>& declared = ClassOf(part).attributes;
    auto place = static_cast<std::size_t>(field.index);
    if (place >= declared.size() || !declared[place].IsNamed(field.name))
        for (place = 0; place < declared.size() && !declared[place].IsNamed(field.name); ++place)
        {}
    if (place == declared.size())
        return nullptr;
    const idb_PartAttribute* const first = attributes_.data() + part.firstAttribute;
    if (place < part.attributeCount && first[place].index == place)
        return first + place;
    for (std::size_t i = 0; i < part.attributeCount; ++i)
        if (first[i].index == place)
            return first + i;
    return nullptr;
}

const idb_PartReader& idb_ObjectFrame::Reader(std::size_t level)
{
    while (readerPlaces_.size() <= level)
        readerPlaces_.push_back(&readers_.emplace_back(*this, readers_.size()));
    return *readerPlaces_[level];
}
