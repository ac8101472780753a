#include <algorithm>
#include <atomic>
#include <cls_ClassRegistrar.h>
#include <cls_TypeId.h>
#include <mutex>
#include <nex_Raise.h>
#include <typ_ArchCompTable.h>
#include <unordered_map>

namespace
{
constexpr const char* SOURCE = "Base/cls/cls_ClassRegistrar";

[[noreturn]] void Refuse(const cow_String& what, int line)
{
    nex_RaiseInternal((cow_String("cls_ClassRegistrar: ") + what).AsCharPtr(), SOURCE, line);
}

cow_String Hexadecimal(unsigned typeId)
{
    char digits[8];
    char* first = digits + sizeof digits;
    do
    {
        *--first = "0123456789abcdef"[typeId & 0xFu];
        typeId >>= 4;
    } while (typeId != 0);
    return cow_String("0x").Append(
        std::string_view(first, static_cast<std::size_t>(digits + sizeof digits - first)));
}

cow_String Quoted(const cow_String& name, unsigned typeId)
{
    return name + " (" + Hexadecimal(typeId) + ")";
}

// A class that is declared on first look-up. The record lives here and not in the registrar's maps, so that
// a first look-up on any thread changes nothing that other threads read.
struct LateClass
{
    unsigned typeId = 0;
    cow_String name;
    cls_MetadataFunction declare = nullptr;
    std::atomic<bool> declared{false};
    std::unique_ptr<cls_ClassMetadata> record;
};

// The late class whose declaration runs on this thread.
constinit thread_local const LateClass* declaring = nullptr;

bool SameData(const cls_ClassMetadata& record, const cow_String& name, unsigned version,
              const cls_AdapterBase* adapter, unsigned parentTypeId)
{
    return record.Name() == name && record.Version() == version && record.Adapter() == adapter &&
           record.ParentTypeId() == parentTypeId;
}
}

struct cls_ClassRegistrar::Body
{
    std::vector<std::unique_ptr<cls_ClassMetadata>> records;
    std::unordered_map<unsigned, cls_ClassMetadata*> byId;
    std::unordered_map<cow_String, cls_ClassMetadata*> byName;
    std::vector<std::unique_ptr<LateClass>> late;
    std::recursive_mutex declaringLate; // a late declaration may look another one up
    std::atomic<int> declarations{0};
    std::atomic<const cls_ClassMetadata*> lastDeclared{nullptr};

    LateClass* FindLate(unsigned typeId) const
    {
        const auto place =
            std::find_if(late.begin(), late.end(), [&](const auto& one) { return one->typeId == typeId; });
        return place != late.end() ? place->get() : nullptr;
    }
    LateClass* FindLate(const cow_String& name) const
    {
        const auto place =
            std::find_if(late.begin(), late.end(), [&](const auto& one) { return one->name == name; });
        return place != late.end() ? place->get() : nullptr;
    }

    // Runs the declaration unless another thread has just done so; one that throws may be tried again.
    void Declare(LateClass& one, cls_ClassRegistrar& registrar)
    {
        const std::lock_guard<std::recursive_mutex> lock(declaringLate);
        if (one.declared.load(std::memory_order_relaxed))
            return;
        struct Guard
        {
            const LateClass* before = declaring;
            ~Guard() { declaring = before; }
        } guard;
        declaring = &one;
        one.declare(registrar);
        if (one.record == nullptr)
            Refuse(cow_String("the late declaration of ") + Quoted(one.name, one.typeId) +
                       " does not declare it",
                   __LINE__);
        one.declared.store(true, std::memory_order_release);
    }

    // Type id under which the name is taken, 0 where it is free.
    unsigned OwnerOf(const cow_String& name) const
    {
        const auto place = byName.find(name);
        if (place != byName.end())
            return place->second->TypeId();
        const LateClass* one = FindLate(name);
        return one != nullptr ? one->typeId : 0;
    }
};

cls_ClassRegistrar::cls_ClassRegistrar() : body_(std::make_unique<Body>()) {}
cls_ClassRegistrar::~cls_ClassRegistrar() = default;

cls_ClassMetadata& cls_ClassRegistrar::Create(const cow_String& name, unsigned typeId, unsigned version,
                                              const cls_AdapterBase* adapter, unsigned parentTypeId)
{
    if (name.IsEmpty() || typeId == 0 || typeId == cls_UniversalRoot)
        Refuse(cow_String("class ") + Quoted(name, typeId) + " cannot be declared", __LINE__);
    if (declaring != nullptr && declaring->typeId != typeId)
        Refuse(cow_String("the late declaration of ") + Quoted(declaring->name, declaring->typeId) +
                   " declares another class, " + Quoted(name, typeId),
               __LINE__);
    LateClass* late = body_->FindLate(typeId);
    if (late != nullptr && !(late->name == name))
        Refuse(cow_String("class ") + Quoted(name, typeId) + " was announced as " + late->name, __LINE__);
    const unsigned owner = body_->OwnerOf(name);
    if (owner != 0 && owner != typeId)
        Refuse(cow_String("class ") + Quoted(name, typeId) + " has the name of class " + Quoted(name, owner),
               __LINE__);

    cls_ClassMetadata* record = nullptr;
    if (late != nullptr)
        record = late->record.get();
    else if (const auto place = body_->byId.find(typeId); place != body_->byId.end())
        record = place->second;

    if (record != nullptr)
    {
        if (!SameData(*record, name, version, adapter, parentTypeId))
            Refuse(cow_String("class ") + Quoted(name, typeId) + " is declared as " +
                       Quoted(record->Name(), typeId) + " with other data",
                   __LINE__);
        record->Redeclare();
    }
    else
    {
        auto fresh = std::make_unique<cls_ClassMetadata>(name, typeId, version, adapter, parentTypeId);
        record = fresh.get();
        if (late != nullptr)
        {
            late->record = std::move(fresh);
        }
        else
        {
            body_->records.push_back(std::move(fresh));
            body_->byId.emplace(typeId, record);
            body_->byName.emplace(name, record);
        }
    }
    body_->lastDeclared = record;
    ++body_->declarations;
    return *record;
}

void cls_ClassRegistrar::DeclareLate(unsigned typeId, const char* name, cls_MetadataFunction declare)
{
    if (const LateClass* one = body_->FindLate(typeId); one != nullptr)
    {
        if (!(one->name == name) || one->declare != declare)
            Refuse(cow_String("class ") + Quoted(name, typeId) + " is announced as " + one->name +
                       " with other data",
                   __LINE__);
        return;
    }
    const unsigned owner = body_->OwnerOf(name);
    if (owner != 0 && owner != typeId)
        Refuse(cow_String("class ") + Quoted(name, typeId) + " has the name of class " + Quoted(name, owner),
               __LINE__);
    if (body_->byId.count(typeId) != 0)
        return;
    auto one = std::make_unique<LateClass>();
    one->typeId = typeId;
    one->name = name;
    one->declare = declare;
    body_->late.push_back(std::move(one));
}

const cls_ClassMetadata* cls_ClassRegistrar::Find(unsigned typeId) const
{
    if (const auto place = body_->byId.find(typeId); place != body_->byId.end())
        return place->second;
    LateClass* late = body_->FindLate(typeId);
    if (late == nullptr)
        return nullptr;
    if (declaring == late)
        return late->record.get();
    if (!late->declared.load(std::memory_order_acquire))
        body_->Declare(*late, const_cast<cls_ClassRegistrar&>(*this));
    return late->record.get();
}

const cls_ClassMetadata* cls_ClassRegistrar::Find(const cow_String& name) const
{
    unsigned typeId = body_->OwnerOf(name);
    if (typeId == 0)
        typeId = typ_ArchCompTable::FindByName(name.View());
    return typeId != 0 ? Find(typeId) : nullptr;
}

namespace
{
// Type id of the parent; 0 for a class that neither has a record nor stands in a component table.
unsigned ParentOf(const cls_ClassRegistrar& registrar, unsigned typeId)
{
    if (const cls_ClassMetadata* record = registrar.Find(typeId); record != nullptr)
        return record->ParentTypeId();
    if (const typ_Entry* row = typ_ArchCompTable::Find(typeId); row != nullptr)
        return cls_MakeTypeId(row->parentComponent, row->parentIndex);
    return 0;
}

// Calls `ends` with the type and its parents until it answers true (the result), or the chain ends at the
// root, breaks off or runs in a circle (false). Circles are found by Brent's method: `mark` stays where the
// walk was after each power of two, and the walk comes back to it.
template <class F>
bool WalkUp(const cls_ClassRegistrar& registrar, unsigned typeId, F ends)
{
    unsigned mark = 0;
    unsigned steps = 0;
    for (unsigned at = typeId, limit = 1; at != 0 && at != cls_UniversalRoot; at = ParentOf(registrar, at))
    {
        if (ends(at))
            return true;
        if (at == mark)
            return false;
        if (++steps == limit)
        {
            mark = at;
            limit *= 2;
            steps = 0;
        }
    }
    return false;
}
}

bool cls_ClassRegistrar::InheritanceCheck(unsigned type, unsigned base) const
{
    if (base == cls_UniversalRoot || type == base)
        return true;
    return WalkUp(*this, type, [base](unsigned at) { return at == base; });
}

cls_DtorHook cls_ClassRegistrar::FindDtor(unsigned typeId) const
{
    cls_DtorHook hook = nullptr;
    WalkUp(*this, typeId, [&](unsigned at) {
        const cls_ClassMetadata* record = Find(at);
        hook = record != nullptr ? record->Dtor() : nullptr;
        return hook != nullptr;
    });
    return hook;
}

cow_String cls_ClassRegistrar::NameOf(unsigned typeId) const
{
    if (const cls_ClassMetadata* record = Find(typeId); record != nullptr)
        return record->Name();
    if (const typ_Entry* row = typ_ArchCompTable::Find(typeId); row != nullptr)
        return cow_String(row->name);
    return Hexadecimal(typeId);
}

cow_List<unsigned> cls_ClassRegistrar::TypeIds() const
{
    cow_List<unsigned> ids;
    for (const auto& record : body_->records)
        ids.Append(record->TypeId());
    for (const auto& one : body_->late)
        ids.Append(one->typeId);
    return ids;
}

int cls_ClassRegistrar::Declarations() const
{
    return body_->declarations;
}

const cls_ClassMetadata* cls_ClassRegistrar::LastDeclared() const
{
    return body_->lastDeclared;
}
