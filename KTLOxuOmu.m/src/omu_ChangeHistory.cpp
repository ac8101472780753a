#include <algorithm>
#include <nex_Raise.h>
#include <omu_ChangeHistory.h>
#include <omu_ChangeListener.h>
#include <utility>

void omu_ChangeHistory::addChange(const omu_PrimTuple& change)
{
    Add(std::make_unique<const omu_PrimTuple>(change));
}

void omu_ChangeHistory::addChange(omu_Delta change)
{
    Add(std::move(change));
}

void omu_ChangeHistory::Clear()
{
    changes_.clear();
}

omu_ChangeListener* omu_ChangeHistory::Listen(omu_ChangeListener* listener)
{
    return std::exchange(listener_, listener);
}

omu_PrimTuple omu_ChangeHistory::Change(int index) const
{
    if (index < 0 || index >= Length())
        nex_RaiseRange(index, Length(), "KTLOxuOmu.m/src/omu_ChangeHistory", __LINE__);
    return TupleOf(changes_[static_cast<std::size_t>(index)]);
}

cow_List<omu_PrimTuple> omu_ChangeHistory::Since(long long mark) const
{
    cow_List<omu_PrimTuple> later;
    for (long long at = std::max(mark, FirstMark()); at < nextMark_; ++at)
        later.Append(TupleOf(Kept(at)));
    return later;
}

omu_PrimTuple omu_ChangeHistory::TupleOf(const Entry& entry)
{
    const auto* const delta = std::get_if<omu_Delta>(&entry);
    return delta != nullptr ? delta->AsTuple() : *std::get<1>(entry);
}

void omu_ChangeHistory::Add(Entry entry)
{
    changes_.push_back(std::move(entry));
    ++nextMark_;
    if (Length() > LIMIT)
        changes_.pop_front();
    if (listener_ == nullptr)
        return;
    // Not the one that is kept: the listener may clear the history.
    const omu_PrimTuple posted = TupleOf(changes_.back());
    listener_->Changed(posted);
}
