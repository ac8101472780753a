#include <cstdio>
#include <omu_SimpleMemShortcutImpl.h>

omu_SimpleMemShortcutImpl::omu_SimpleMemShortcutImpl(const omu_Shortcut& base, const cow_String& memberName)
    : omu_SimpleShortcutImpl(base), memberName_(memberName)
{}

omu_SimpleMemShortcutImpl* omu_SimpleMemShortcutImpl::Copy() const
{
    return new omu_SimpleMemShortcutImpl(*this);
}

cow_String omu_SimpleMemShortcutImpl::Name() const
{
    return memberName_;
}

void omu_SimpleMemShortcutImpl::AppendStep(std::string& path) const
{
    path += '.';
    path += memberName_.View();
}

void omu_SimpleMemShortcutImpl::TracePath(const std::string& path) const
{
    std::fprintf(stderr, "omu_SimpleMemShortcut. Path: %s\n", path.c_str());
}
