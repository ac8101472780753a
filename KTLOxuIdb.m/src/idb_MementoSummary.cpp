#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <idb_Fault.h>
#include <idb_MementoRead.h>
#include <idb_MementoSummary.h>
#include <idb_StoredMemento.h>

namespace
{
constexpr const char* UNKNOWN_WARNING = "class %s (%s) is not known";

cow_String ParentName(const idb_StoredMemento& stored, unsigned typeId)
{
    if (typeId == cls_UniversalRoot)
        return {};
    for (const idb_StoredClass& other : stored.Classes())
        if (other.typeId == typeId)
            return other.name;
    return cls_MetadataRegistrar::Instance().Registrar().NameOf(typeId);
}
}

idb_MementoSummary::idb_MementoSummary(const idb_MementoRead& memento)
    : majorFormat(memento.Stored().Major()),
      minorFormat(memento.Stored().Minor()),
      bytes(memento.Stored().Bytes()),
      objects(memento.Stored().ObjectCount()),
      warnings(memento.Warnings())
{
    const idb_StoredMemento& stored = memento.Stored();
    for (const idb_StoredSection& section : stored.Sections())
        sections.push_back({section.tag, section.at, section.length});
    for (const idb_StoredClass& one : stored.Classes())
    {
        const bool isKnown = one.record != nullptr && one.record->Name() == one.name;
        classes.push_back({one.name, one.typeId, one.version, ParentName(stored, one.parentTypeId),
                           static_cast<int>(one.attributes.size()), 0, 0, isKnown});
        if (!isKnown)
            warnings.Append(oxu_FormatMessage(UNKNOWN_WARNING, one.name, idb_Fault::Hexadecimal(one.typeId)));
    }
    for (std::uint32_t number = 1; number <= objects; ++number)
    {
        Class& own = classes[stored.Object(number).classIndex];
        ++own.objects;
        own.bytes += stored.Object(number).length;
    }
    for (const idb_StoredRoot& root : stored.Roots())
        roots.push_back(
            {root.name, root.number, root.number == 0 ? cow_String() : stored.ClassOf(root.number).name});
}
