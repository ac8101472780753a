#include <cstdio>
#include <omu_SimpleSeqShortcutImpl.h>

omu_SimpleSeqShortcutImpl::omu_SimpleSeqShortcutImpl(const omu_Shortcut& base, int index, int id)
    : omu_SimpleSeqShortcutImpl(base, cow_String(), index, id)
{}

omu_SimpleSeqShortcutImpl::omu_SimpleSeqShortcutImpl(const omu_Shortcut& base, const cow_String& memberName,
                                                     int index, int id)
    : omu_SimpleShortcutImpl(base), memberName_(memberName), index_(index), id_(id)
{}

omu_SimpleSeqShortcutImpl* omu_SimpleSeqShortcutImpl::Copy() const
{
    return new omu_SimpleSeqShortcutImpl(*this);
}

cow_String omu_SimpleSeqShortcutImpl::Name() const
{
    return index_ == NO_INDEX ? memberName_ : cow_String('[' + std::to_string(index_) + ']');
}

void omu_SimpleSeqShortcutImpl::AppendStep(std::string& path) const
{
    if (index_ != NO_INDEX)
    {
        path += '[' + std::to_string(index_) + ']';
    }
    else if (!memberName_.IsEmpty())
    {
        path += '.';
        path += memberName_.View();
    }
}

void omu_SimpleSeqShortcutImpl::TracePath(const std::string& path) const
{
    std::fprintf(stderr, "omu_SimpleSeqShortcut. Path: %s\n", path.c_str());
}
