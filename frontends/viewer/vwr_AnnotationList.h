#pragma once

#include <annC_OrderTree.h>
#include <cls_Uid.h>
#include <cow_List.h>
#include <cow_String.h>

#include <unordered_map>

class annC_AnnotationContainer;
class omu_ChangeHistory;
struct omu_Delta;

/// A viewer's own list of the names in a container, front first, kept up to date by the change history of the
/// thread on which it follows.
///
/// The container numbers its changes, so the list knows whether the history told it of all of them. It does
/// not of changes that another thread made, nor of those that have fallen out: then the list is taken from
/// the container afresh.
class vwr_AnnotationList
{
public:
    vwr_AnnotationList() = default;
    vwr_AnnotationList(const vwr_AnnotationList&) = delete;
    vwr_AnnotationList& operator=(const vwr_AnnotationList&) = delete;

    /// Brings the list up to the container. Applies the changes since the last time; takes everything afresh
    /// the first time, for another container, when the history does not hold all the changes, and after the
    /// container's Clear or an assignment to it.
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
    [[nodiscard]] bool Apply(const omu_ChangeHistory& history, long long posted);
    [[nodiscard]] bool ApplyOne(const omu_Delta& delta);
    [[nodiscard]] bool Insert(const cow_String& name, int index);
    [[nodiscard]] bool Remove(const cow_String& name);
    void Rebuild(const annC_AnnotationContainer& container);

    annC_OrderTree order_;
    std::unordered_map<cow_String, Entry> entries_;
    cls_Uid source_ = cls_Uid::Null(); // that the list is of, up to this number of its changes
    long long applied_ = 0;
    long long mark_ = 0;
    int rebuilds_ = 0;
};
