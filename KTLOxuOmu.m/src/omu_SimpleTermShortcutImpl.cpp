#include <cstdio>
#include <omu_SimpleTermShortcutImpl.h>

omu_SimpleTermShortcutImpl::omu_SimpleTermShortcutImpl(const cow_String& term, bool inModel, bool inOdb,
                                                       bool inSession)
    : omu_SimpleShortcutImpl(omu_Shortcut()),
      term_(term),
      inModel_(inModel),
      inOdb_(inOdb),
      inSession_(inSession)
{}

omu_SimpleTermShortcutImpl* omu_SimpleTermShortcutImpl::Copy() const
{
    return new omu_SimpleTermShortcutImpl(*this);
}

cow_String omu_SimpleTermShortcutImpl::Name() const
{
    return term_;
}

void omu_SimpleTermShortcutImpl::AppendStep(std::string& path) const
{
    path += term_.View();
}

void omu_SimpleTermShortcutImpl::TracePath(const std::string& path) const
{
    std::fprintf(stderr, "omu_SimpleTermShortcutImpl. Path: %s\n", path.c_str());
}
