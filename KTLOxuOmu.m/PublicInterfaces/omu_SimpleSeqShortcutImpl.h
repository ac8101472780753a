#pragma once

#include <limits>
#include <omu_SimpleShortcutImpl.h>

/// An element of a sequence: "[3]". Without an index it is a member, ".vertices", or nothing when the
/// member's name is empty.
class OXU_EXPORT omu_SimpleSeqShortcutImpl : public omu_SimpleShortcutImpl
{
public:
    /// The index that means that none is given.
    static constexpr int NO_INDEX = std::numeric_limits<int>::min();

    /// `id` is the element's own identifier, for whoever looks it up by that.
    omu_SimpleSeqShortcutImpl(const omu_Shortcut& base, int index, int id);
    /// With a name for the case that there is no index.
    omu_SimpleSeqShortcutImpl(const omu_Shortcut& base, const cow_String& memberName, int index = NO_INDEX,
                              int id = NO_INDEX);

    omu_SimpleSeqShortcutImpl* Copy() const override;
    /// "[3]", or the member's name.
    cow_String Name() const override;
    void AppendStep(std::string& path) const override;
    void TracePath(const std::string& path) const override;

    int Index() const { return index_; }
    int Id() const { return id_; }

private:
    cow_String memberName_;
    int index_ = NO_INDEX;
    int id_ = NO_INDEX;
};
