#include <omu_EnvSwitches.h>
#include <omu_SimpleShortcutImpl.h>

omu_SimpleShortcutImpl::omu_SimpleShortcutImpl(const omu_Shortcut& base) : base_(base) {}

cow_String omu_SimpleShortcutImpl::Path() const
{
    return cow_String(JoinedSteps(omu_EnvSwitches::TraceShortcutPaths()));
}

bool omu_SimpleShortcutImpl::InModel() const
{
    const omu_ShortcutImpl* root = Root();
    return root != nullptr && root->InModel();
}

bool omu_SimpleShortcutImpl::InOdb() const
{
    const omu_ShortcutImpl* root = Root();
    return root != nullptr && root->InOdb();
}

bool omu_SimpleShortcutImpl::InSession() const
{
    const omu_ShortcutImpl* root = Root();
    return root != nullptr && root->InSession();
}

const omu_ShortcutImpl* omu_SimpleShortcutImpl::Base() const
{
    return base_.Implementation();
}

omu_Shortcut omu_SimpleShortcutImpl::TakeBase() noexcept
{
    return std::move(base_);
}

const omu_ShortcutImpl* omu_SimpleShortcutImpl::Root() const
{
    const omu_ShortcutImpl* root = nullptr;
    for (const omu_ShortcutImpl* step = Base(); step != nullptr; step = step->Base())
        root = step;
    return root;
}
