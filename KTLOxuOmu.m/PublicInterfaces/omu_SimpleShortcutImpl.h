#pragma once

#include <omu_Shortcut.h>
#include <omu_ShortcutImpl.h>

/// One step more than the shortcut it extends: what the four kinds of steps share. Whether the whole lies in
/// the model, in an odb or in the session is what its root says; false where there is no root.
class OXU_EXPORT omu_SimpleShortcutImpl : public omu_ShortcutImpl
{
public:
    /// Shares the base.
    explicit omu_SimpleShortcutImpl(const omu_Shortcut& base);

    omu_SimpleShortcutImpl* Copy() const override = 0;
    cow_String Path() const override;
    bool InModel() const override;
    bool InOdb() const override;
    bool InSession() const override;
    const omu_ShortcutImpl* Base() const override;
    omu_Shortcut TakeBase() noexcept override;

    const omu_Shortcut& BaseShortcut() const { return base_; }

private:
    /// The first of the chain, null when that is this one.
    const omu_ShortcutImpl* Root() const;

    omu_Shortcut base_;
};
