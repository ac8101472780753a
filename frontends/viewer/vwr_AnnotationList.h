#pragma once

#include <annC_OrderTree.h>
#include <cls_Uid.h>
#include <cow_List.h>
#include <cow_String.h>

#include <unordered_map>

class annC_AnnotationContainer;
class omu_ChangeHistory;
class omu_PrimTuple;

/// A viewer's own list of the names in a container, front first, kept up to date by the change history of the
/// thread on which it follows.
///
/// The history does not say to which container a change belongs, and some changes are not in it. So every
/// name that a change touched is compared with the container afterwards, and the number of names: where one
/// differs, the list is taken from the container afresh. That finds every difference that this thread made,
/// since names that were not touched keep their order. Of what other threads did it finds what changes the
/// number of names, or the place of a name that this thread touched: their mere moves go unseen.
class vwr_AnnotationList
{
public:
    vwr_AnnotationList() = default;
    vwr_AnnotationList(const vwr_AnnotationList&) = delete;
    vwr_AnnotationList& operator=(const vwr_AnnotationList&) = delete;

    /// Brings the list up to the container. Applies the changes since the last time; takes everything afresh
    /// the first time, for another container (another object, or another uid), for another thread's history,
    /// when the history no longer holds all of them, and when they do not lead to the container, as after its
    /// Clear.
    void Follow(const annC_AnnotationContainer& container);

    /// In the order of the container when it was last followed.
    cow_List<cow_String> Names() const;
    unsigned Size() const { return order_.Size(); }
    /// How often the list was taken afresh.
    int Rebuilds() const { return rebuilds_; }

private:
    struct Entry : annC_OrderLink
    {
        cow_String name;
    };

    // These answer false for what cannot be applied.
    [[nodiscard]] bool Apply(const annC_AnnotationContainer& container,
                             const cow_List<omu_PrimTuple>& changes);
    [[nodiscard]] bool ApplyOne(const omu_PrimTuple& change);
    [[nodiscard]] bool Insert(const cow_String& name, int index);
    [[nodiscard]] bool Remove(const cow_String& name);
    int IndexOf(const cow_String& name) const;
    void Rebuild(const annC_AnnotationContainer& container);

    annC_OrderTree order_;
    std::unordered_map<cow_String, Entry> entries_;
    // Compared only, never followed.
    const annC_AnnotationContainer* container_ = nullptr;
    const omu_ChangeHistory* history_ = nullptr;
    cls_Uid uid_ = cls_Uid::Null();
    long long mark_ = 0;
    int rebuilds_ = 0;
};
