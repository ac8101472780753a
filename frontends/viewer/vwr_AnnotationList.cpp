#include <annC_AnnotationContainer.h>
#include <omu_ChangeHistory.h>
#include <vwr_AnnotationList.h>

void vwr_AnnotationList::Follow(const annC_AnnotationContainer& container)
{
    const omu_ChangeHistory& history = omu_ChangeHistory::Instance();
    const omu_DeltaSource& source = container.Changes();
    if (source.Uid() != source_ || !Apply(history, source.Posted()))
        Rebuild(container);
    source_ = source.Uid();
    applied_ = source.Posted();
    mark_ = history.NextMark();
}

cow_List<cow_String> vwr_AnnotationList::Names() const
{
    cow_List<cow_String> names;
    names.Reserve(static_cast<int>(Size()));
    for (unsigned i = 0; i < Size(); ++i)
        names.Append(static_cast<const Entry*>(order_.At(i))->name);
    return names;
}

bool vwr_AnnotationList::Apply(const omu_ChangeHistory& history, long long posted)
{
    if (applied_ == posted)
        return true;
    return history.EachDeltaSince(mark_, [this](const omu_Delta& delta) {
        if (delta.source != source_ || delta.serial <= applied_)
            return true;
        return delta.serial == ++applied_ && ApplyOne(delta);
    }) && applied_ == posted;
}

bool vwr_AnnotationList::ApplyOne(const omu_Delta& delta)
{
    using enum omu_Delta::KindEnm;
    switch (delta.kind)
    {
    case INSERT:
        return Insert(delta.name, delta.index);
    case REMOVE:
        return Remove(delta.name);
    case RENAME:
        return Remove(delta.name) && Insert(delta.newName, delta.index);
    case MODIFY:
        break;
    }
    return true;
}

bool vwr_AnnotationList::Insert(const cow_String& name, int index)
{
    if (index < 0 || static_cast<unsigned>(index) > Size())
        return false;
    const auto [entry, fresh] = entries_.try_emplace(name);
    if (!fresh)
        return false;
    entry->second.name = name;
    order_.InsertBefore(entry->second, order_.At(static_cast<unsigned>(index)));
    return true;
}

bool vwr_AnnotationList::Remove(const cow_String& name)
{
    const auto found = entries_.find(name);
    if (found == entries_.end())
        return false;
    order_.Remove(found->second);
    entries_.erase(found);
    return true;
}

void vwr_AnnotationList::Rebuild(const annC_AnnotationContainer& container)
{
    order_.Clear();
    entries_.clear();
    for (const cow_String& name : container.Keys())
    {
        Entry& entry = entries_[name];
        entry.name = name;
        order_.InsertBefore(entry, nullptr);
    }
    ++rebuilds_;
}
