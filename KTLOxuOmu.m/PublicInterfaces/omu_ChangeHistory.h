#pragma once

#include <algorithm>
#include <cow_List.h>
#include <deque>
#include <memory>
#include <omu_Delta.h>
#include <omu_PrimTuple.h>
#include <oxu_Export.h>
#include <thr_ThreadSingleton.h>
#include <variant>

class omu_ChangeListener;

/// What changed, in order, so that a viewer redraws only that: delta tuples such as ("Insert", "Arrow-1", 0).
///
/// One a thread: thr_ThreadSingleton<omu_ChangeHistory>::Instance(). Every change has a mark, its number from
/// the start of the history; marks are never used again. The history keeps the last LIMIT changes. A viewer
/// remembers NextMark() and later asks for what came Since then; when its mark lies before FirstMark(),
/// changes were lost and it redraws all.
///
/// A change that is given as an omu_Delta is kept as such, and its tuple made when somebody asks for it.
class OXU_EXPORT omu_ChangeHistory : public thr_ThreadSingleton<omu_ChangeHistory>
{
public:
    static constexpr int LIMIT = 100000;

    /// Appends a copy, which shares the tuple's items; the oldest falls out when there are more than LIMIT.
    void addChange(const omu_PrimTuple& change);
    void addChange(omu_Delta change);
    /// Forgets the changes; marks go on.
    void Clear();
    /// Makes `listener`, which the caller keeps alive, the one that hears of each change; null for none.
    /// Returns the former.
    omu_ChangeListener* Listen(omu_ChangeListener* listener);

    int Length() const { return static_cast<int>(changes_.size()); }
    /// From 0, the oldest that is kept; an index outside raises the out-of-range error.
    omu_PrimTuple Change(int index) const;
    /// The mark of the oldest change that is kept; NextMark() when there is none.
    long long FirstMark() const { return nextMark_ - Length(); }
    /// The mark that the next change will have.
    long long NextMark() const { return nextMark_; }
    /// The changes that are kept, from this mark on.
    cow_List<omu_PrimTuple> Since(long long mark) const;
    /// Calls look(const omu_Delta&) with those of them that were given as deltas, until it answers false;
    /// returns whether it never did.
    template <class F>
    bool EachDeltaSince(long long mark, F look) const
    {
        for (long long at = std::max(mark, FirstMark()); at < nextMark_; ++at)
            if (const auto* const delta = std::get_if<omu_Delta>(&Kept(at));
                delta != nullptr && !look(*delta))
                return false;
        return true;
    }

private:
    using Entry = std::variant<omu_Delta, std::unique_ptr<const omu_PrimTuple>>;

    static omu_PrimTuple TupleOf(const Entry& entry);
    const Entry& Kept(long long mark) const { return changes_[static_cast<std::size_t>(mark - FirstMark())]; }
    void Add(Entry entry);

    std::deque<Entry> changes_;
    long long nextMark_ = 0;
    omu_ChangeListener* listener_ = nullptr;
};
