#include <cls_TypeId.h>
#include <map>
#include <nex_Raise.h>
#include <string>
#include <typ_ArchCompTable.h>

namespace
{
constexpr const char* SOURCE = "Base/typ/typ_ArchCompTable";

using Components = std::map<unsigned short, typ_ArchCompEntry>;

// Never destroyed: exceptions ask for class names until the very end of the process.
Components& TheComponents()
{
    static Components& components = *new Components;
    return components;
}

bool IsEmptySlot(const typ_Entry& row)
{
    return row.kind == 0 || row.name == nullptr;
}
}

void typ_ArchCompTable::InsertEntry(unsigned short component, typ_ArchCompEntry entry)
{
    if (entry.Entries() == nullptr || entry.Count() == 0)
        nex_RaiseInternal(
            ("typ_ArchCompTable: component " + std::to_string(component) + " has no rows").c_str(), SOURCE,
            __LINE__);
    const auto [place, inserted] = TheComponents().emplace(component, entry);
    if (!inserted && !(place->second == entry))
        nex_RaiseInternal(
            ("typ_ArchCompTable: component " + std::to_string(component) + " has another table already")
                .c_str(),
            SOURCE, __LINE__);
}

const typ_ArchCompEntry* typ_ArchCompTable::FindComponent(unsigned short component)
{
    const auto place = TheComponents().find(component);
    return place != TheComponents().end() ? &place->second : nullptr;
}

const typ_Entry* typ_ArchCompTable::Find(unsigned typeId)
{
    const typ_ArchCompEntry* entry = FindComponent(cls_ComponentOf(typeId));
    if (entry == nullptr || cls_IndexOf(typeId) >= entry->Count())
        return nullptr;
    const typ_Entry& row = entry->Entries()[cls_IndexOf(typeId)];
    return IsEmptySlot(row) ? nullptr : &row;
}

unsigned typ_ArchCompTable::FindByName(std::string_view name)
{
    for (const auto& [component, entry] : TheComponents())
        for (unsigned index = 0; index < entry.Count(); ++index)
            if (!IsEmptySlot(entry.Entries()[index]) && name == entry.Entries()[index].name)
                return cls_MakeTypeId(component, index);
    return 0;
}
