#include <algorithm>
#include <nex_Raise.h>
#include <omu_ChangeHistory.h>
#include <omu_ChangeListener.h>
#include <utility>

void omu_ChangeHistory::addChange(const omu_PrimTuple& change)
{
    changes_.push_back(change);
    ++nextMark_;
    if (Length() > LIMIT)
        changes_.pop_front();
    if (listener_ == nullptr)
        return;
    // A copy of its own: what was given may be a change that has just fallen out, or that the listener
    // clears.
    const omu_PrimTuple posted(changes_.back());
    listener_->Changed(posted);
}

void omu_ChangeHistory::Clear()
{
    changes_.clear();
}

omu_ChangeListener* omu_ChangeHistory::Listen(omu_ChangeListener* listener)
{
    return std::exchange(listener_, listener);
}

const omu_PrimTuple& omu_ChangeHistory::Change(int index) const
{
    if (index < 0 || index >= Length())
        nex_RaiseRange(index, Length(), "KTLOxuOmu.m/src/omu_ChangeHistory", __LINE__);
    return changes_[static_cast<std::size_t>(index)];
}

cow_List<omu_PrimTuple> omu_ChangeHistory::Since(long long mark) const
{
    cow_List<omu_PrimTuple> later;
    for (long long at = std::max(mark, FirstMark()); at < nextMark_; ++at)
        later.Append(changes_[static_cast<std::size_t>(at - FirstMark())]);
    return later;
}
