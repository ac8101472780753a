#pragma once

#include <cls_Uid.h>
#include <cow_String.h>
#include <omu_Delta.h>
#include <oxu_Export.h>

/// Posts the changes of one collection to the calling thread's omu_ChangeHistory and numbers them, so that
/// who follows can tell whether it has heard of all: of one source, the changes up to the number Posted()
/// lead from one state of the collection to the other.
///
/// It belongs to the object, not to its contents: a copy is a source of its own, and one that is assigned to
/// becomes a new source. So does one whose post raises, since a listener did or memory ran out.
class OXU_EXPORT omu_DeltaSource
{
public:
    omu_DeltaSource() = default;
    omu_DeltaSource(const omu_DeltaSource&) noexcept : omu_DeltaSource() {}
    omu_DeltaSource& operator=(const omu_DeltaSource&) noexcept
    {
        Restart();
        return *this;
    }

    void PostModify(const cow_String& name) { Post(MODIFY, name); }
    void PostInsert(const cow_String& name, int index) { Post(INSERT, name, cow_String(), index); }
    void PostRemove(const cow_String& name) { Post(REMOVE, name); }
    void PostRename(const cow_String& name, const cow_String& newName, int index)
    {
        Post(RENAME, name, newName, index);
    }
    /// Becomes a new source: after a change that is not posted.
    void Restart() noexcept;

    const cls_Uid& Uid() const { return uid_; }
    long long Posted() const { return posted_; }

private:
    using enum omu_Delta::KindEnm;

    void Post(omu_Delta::KindEnm kind, const cow_String& name, const cow_String& newName = cow_String(),
              int index = 0);

    cls_Uid uid_;
    long long posted_ = 0;
};
