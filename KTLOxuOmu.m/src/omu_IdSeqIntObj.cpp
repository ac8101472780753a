#include <algorithm>
#include <limits>
#include <nex_RaiseWith.h>
#include <omu_IdSeqIntObj.h>
#include <omu_IndexErrorException.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimList.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_IdSeqIntObj";
}

const omu_InterfaceObj::TypeDesc& omu_IdSeqIntObj::Description()
{
    static const TypeDesc description =
        DescribeType("InstanceSequence", nullptr, nullptr, nullptr, nullptr, omu_SeqIntObj::Description());
    return description;
}

omu_IdSeqIntObj::omu_IdSeqIntObj(const omu_Shortcut& shortcut, omu_OperationRules rules,
                                 omu_PythonType pythonType)
    : omu_SeqIntObj(shortcut, rules, pythonType)
{
    SetTypeDesc(Description());
}

omu_IdSeqIntObj::omu_IdSeqIntObj(omu_OperationRules rules, omu_PythonType pythonType)
    : omu_IdSeqIntObj(omu_Shortcut(), rules, pythonType)
{}

omu_IdSeqIntObj* omu_IdSeqIntObj::Copy() const
{
    return new omu_IdSeqIntObj(*this);
}

cow_String omu_IdSeqIntObj::AsString(int nesting) const
{
    if (IsStale())
        return DefaultRepr();
    omu_PrimDictionary<int> byInstance;
    for (int instance = 0; instance < entries_.Length(); ++instance)
        byInstance.Put(instanceIds_.Get(instance), new omu_PrimList(entries_.Get(instance)));
    return byInstance.AsString(nesting);
}

int omu_IdSeqIntObj::Length() const
{
    return ends_.IsEmpty() ? 0 : ends_.Get(ends_.Length() - 1);
}

omu_Primitive* omu_IdSeqIntObj::Index(int) const
{
    return nullptr;
}

omu_Primitive* omu_IdSeqIntObj::Slice(int, int) const
{
    return nullptr;
}

omu_Primitive* omu_IdSeqIntObj::Repeat(int) const
{
    return nullptr;
}

omu_Primitive* omu_IdSeqIntObj::Concat(const omu_SeqIntObj*) const
{
    return nullptr;
}

omu_Primitive* omu_IdSeqIntObj::Remove(int) const
{
    return nullptr;
}

omu_Primitive* omu_IdSeqIntObj::RemoveSlice(int, int) const
{
    return nullptr;
}

omu_Primitive* omu_IdSeqIntObj::RemoveDuplicates() const
{
    return nullptr;
}

bool omu_IdSeqIntObj::IsUnique(int) const
{
    return false;
}

void omu_IdSeqIntObj::Subscripts(omu_ListArrayInt& entries) const
{
    entries = entries_;
}

void omu_IdSeqIntObj::Subscripts(omu_ListArrayInt& entries, int from, int to) const
{
    const int clampedFrom = std::clamp(from, 0, Length());
    const int clampedTo = std::clamp(to, 0, Length());
    omu_ListArrayInt chosen;
    int begin = 0;
    for (const cow_List<int>& ids : entries_)
    {
        const int first = std::clamp(clampedFrom - begin, 0, ids.Length());
        const int last = std::clamp(clampedTo - begin, first, ids.Length());
        chosen.Append(cow_List<int>::FromArray(ids.Data() + first, last - first));
        begin += ids.Length();
    }
    entries = chosen;
}

bool omu_IdSeqIntObj::GetSingleInstanceId(int& id) const
{
    int single = -1;
    for (int instance = 0; instance < entries_.Length(); ++instance)
    {
        if (entries_.Get(instance).IsEmpty())
            continue;
        if (single >= 0)
            return false;
        single = instance;
    }
    if (single < 0)
        return false;
    id = instanceIds_.Get(single);
    return true;
}

int omu_IdSeqIntObj::ConvertIndex(const int& index, bool endAllowed, int length) const
{
    return omu_SeqIntObj::ConvertIndex(index, endAllowed, length);
}

void omu_IdSeqIntObj::ConvertSubscrIndex(const int& index, int& instance, int& place, int length) const
{
    const int position = ConvertIndex(index, false, length);
    const int* end = std::upper_bound(ends_.begin(), ends_.end(), position);
    if (end == ends_.end())
        nex_Raise(omu_IndexErrorException(index), SOURCE, __LINE__);
    instance = static_cast<int>(end - ends_.begin());
    place = position - (instance == 0 ? 0 : ends_.Get(instance - 1));
}

void omu_IdSeqIntObj::SetEntries(const cow_List<int>& instanceIds, const omu_ListArrayInt& entries)
{
    if (instanceIds.Length() != entries.Length())
        nex_RaiseInternal("an identifier for each instance", SOURCE, __LINE__);
    cow_List<int> ends;
    int end = 0;
    for (const cow_List<int>& ids : entries)
    {
        if (ids.Length() > std::numeric_limits<int>::max() - end)
            nex_RaiseInternal("too many entries", SOURCE, __LINE__);
        end += ids.Length();
        ends.Append(end);
    }
    instanceIds_ = instanceIds;
    entries_ = entries;
    ends_ = ends;
}
