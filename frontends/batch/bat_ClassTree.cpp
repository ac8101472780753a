#include <algorithm>
#include <bat_ClassTree.h>
#include <bat_InputError.h>
#include <bat_NearestNames.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <typ_ArchCompTable.h>

namespace
{
const cls_ClassRegistrar& Registrar()
{
    return cls_MetadataRegistrar::Instance().Registrar();
}

std::string Text(const cow_String& text)
{
    return std::string(text.View());
}

/// By its record, else by the component tables; the root where neither knows it.
unsigned ParentOf(unsigned typeId)
{
    if (const cls_ClassMetadata* record = Registrar().Find(typeId))
        return record->ParentTypeId();
    const typ_Entry* row = typ_ArchCompTable::Find(typeId);
    return row != nullptr ? cls_MakeTypeId(row->parentComponent, row->parentIndex) : cls_UniversalRoot;
}

bat_ClassTree::Kind KindOf(const cls_ClassMetadata& record)
{
    if (record.Adapter() == nullptr)
        return bat_ClassTree::Kind::EMBEDDED;
    return record.Adapter()->IsAbstract() ? bat_ClassTree::Kind::ABSTRACT : bat_ClassTree::Kind::CONCRETE;
}

unsigned FindOrRefuse(const std::string& name)
{
    const cow_String key{std::string_view(name)};
    if (const cls_ClassMetadata* record = Registrar().Find(key))
        return record->TypeId();
    if (const unsigned typeId = typ_ArchCompTable::FindByName(name); typeId != 0)
        return typeId;
    bat_NearestNames nearest(name);
    for (const unsigned typeId : Registrar().TypeIds())
        nearest.Offer(Text(Registrar().NameOf(typeId)));
    throw bat_InputError("there is no class " + name + "." + nearest.Hint());
}
}

bat_ClassTree bat_ClassTree::All()
{
    bat_ClassTree tree;
    tree.AddBelow(cls_UniversalRoot, 0);
    return tree;
}

bat_ClassTree bat_ClassTree::Around(const std::string& name)
{
    std::vector<unsigned> line;
    for (unsigned at = FindOrRefuse(name); at != cls_UniversalRoot; at = ParentOf(at))
        line.push_back(at);
    bat_ClassTree tree;
    int depth = 0;
    for (auto at = line.rbegin(); at != line.rend(); ++at)
        tree.Add(*at, depth++);
    tree.asked_ = depth - 1;
    tree.AddBelow(line.front(), depth);
    return tree;
}

void bat_ClassTree::Add(unsigned typeId, int depth)
{
    const unsigned parent = ParentOf(typeId);
    const typ_Entry* row = typ_ArchCompTable::Find(typeId);
    Class one{Text(Registrar().NameOf(typeId)), "", typeId, 0, Kind::UNDECLARED, "", depth, {}};
    if (row != nullptr && one.name != row->name)
        one.tableName = row->name;
    if (parent != cls_UniversalRoot)
        one.parent = Text(Registrar().NameOf(parent));
    if (const cls_ClassMetadata* record = Registrar().Find(typeId))
    {
        one.version = record->Version();
        one.kind = KindOf(*record);
        for (const cls_Attribute& attribute : record->Attributes())
            one.attributes.push_back(
                {Text(attribute.name), static_cast<unsigned>(attribute.type),
                 static_cast<unsigned>(attribute.collection),
                 attribute.typeId == cls_UniversalRoot ? "" : Text(Registrar().NameOf(attribute.typeId))});
    }
    classes_.push_back(std::move(one));
}

// Registered classes alone: those of which only the tables tell are listed when they are asked for.
void bat_ClassTree::AddBelow(unsigned typeId, int depth)
{
    for (const unsigned child : Registrar().TypeIds())
    {
        if (ParentOf(child) != typeId)
            continue;
        Add(child, depth);
        AddBelow(child, depth + 1);
    }
}

const char* bat_ClassTree::NameOf(Kind kind)
{
    switch (kind)
    {
    case Kind::CONCRETE:
        return "concrete";
    case Kind::ABSTRACT:
        return "abstract";
    case Kind::EMBEDDED:
        return "embedded";
    case Kind::UNDECLARED:
        break;
    }
    return "no metadata";
}
