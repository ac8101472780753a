#include <annC_AnnotationContainer.h>
#include <omu_ChangeHistory.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <vwr_AnnotationList.h>

namespace
{
// The text at that place of a change; null where there is none.
const cow_String* TextAt(const omu_PrimTuple& change, int item)
{
    const auto* const text =
        item < change.Length() ? dynamic_cast<const omu_PrimString*>(change[item]) : nullptr;
    return text != nullptr ? &text->Value() : nullptr;
}

// The index at that place; -1 where there is none.
int IndexAt(const omu_PrimTuple& change, int item)
{
    const auto* const number =
        item < change.Length() ? dynamic_cast<const omu_PrimNumber*>(change[item]) : nullptr;
    return number != nullptr ? static_cast<int>(number->Value()) : -1;
}
}

void vwr_AnnotationList::Follow(const annC_AnnotationContainer& container)
{
    const omu_ChangeHistory& history = omu_ChangeHistory::Instance();
    const bool known = &container == container_ && container.Uid() == uid_ && &history == history_ &&
                       mark_ >= history.FirstMark() && mark_ <= history.NextMark();
    if (!known || !Apply(container, history.Since(mark_)))
        Rebuild(container);
    container_ = &container;
    uid_ = container.Uid();
    history_ = &history;
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

bool vwr_AnnotationList::Apply(const annC_AnnotationContainer& container,
                               const cow_List<omu_PrimTuple>& changes)
{
    for (const omu_PrimTuple& change : changes)
        if (!ApplyOne(change))
            return false;
    if (Size() != container.Size())
        return false;
    for (const omu_PrimTuple& change : changes)
        for (const int item : {1, 2})
            if (const cow_String* const name = TextAt(change, item))
                if (IndexOf(*name) != container.IndexOf(*name))
                    return false;
    return true;
}

bool vwr_AnnotationList::ApplyOne(const omu_PrimTuple& change)
{
    const cow_String* const kind = TextAt(change, 0);
    const cow_String* const name = TextAt(change, 1);
    if (kind == nullptr || name == nullptr)
        return false;
    if (*kind == "Modify")
        return true;
    if (*kind == "Remove")
        return Remove(*name);
    if (*kind == "Insert")
        return Insert(*name, IndexAt(change, 2));
    const cow_String* const to = TextAt(change, 2);
    return *kind == "Rename" && to != nullptr && Remove(*name) && Insert(*to, IndexAt(change, 3));
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

int vwr_AnnotationList::IndexOf(const cow_String& name) const
{
    const auto found = entries_.find(name);
    return found == entries_.end() ? -1 : static_cast<int>(order_.IndexOf(found->second));
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
