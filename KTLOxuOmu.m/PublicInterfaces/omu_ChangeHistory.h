#pragma once

#include <cow_List.h>
#include <deque>
#include <omu_PrimTuple.h>
#include <oxu_Export.h>
#include <thr_ThreadSingleton.h>

class omu_ChangeListener;

/// What changed, in order, so that a viewer redraws only that: delta tuples such as ("Insert", "Arrow-1", 0).
///
/// One a thread: thr_ThreadSingleton<omu_ChangeHistory>::Instance(). Every change has a mark, its number from
/// the start of the history; marks are never used again. The history keeps the last LIMIT changes. A viewer
/// remembers NextMark() and later asks for what came Since then; when its mark lies before FirstMark(),
/// changes were lost and it redraws all.
class OXU_EXPORT omu_ChangeHistory : public thr_ThreadSingleton<omu_ChangeHistory>
{
public:
    static constexpr int LIMIT = 100000;

    /// Appends a copy, which shares the tuple's items; the oldest falls out when there are more than LIMIT.
    void addChange(const omu_PrimTuple& change);
    /// Forgets the changes; marks go on.
    void Clear();
    /// Makes `listener`, which the caller keeps alive, the one that hears of each change; null for none.
    /// Returns the former.
    omu_ChangeListener* Listen(omu_ChangeListener* listener);

    int Length() const { return static_cast<int>(changes_.size()); }
    /// From 0, the oldest that is kept; an index outside raises the out-of-range error.
    const omu_PrimTuple& Change(int index) const;
    /// The mark of the oldest change that is kept; NextMark() when there is none.
    long long FirstMark() const { return nextMark_ - Length(); }
    /// The mark that the next change will have.
    long long NextMark() const { return nextMark_; }
    /// The changes that are kept, from this mark on.
    cow_List<omu_PrimTuple> Since(long long mark) const;

private:
    std::deque<omu_PrimTuple> changes_;
    long long nextMark_ = 0;
    omu_ChangeListener* listener_ = nullptr;
};
