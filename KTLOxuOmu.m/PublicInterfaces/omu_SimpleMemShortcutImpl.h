#pragma once

#include <omu_SimpleShortcutImpl.h>

/// A member of the object reached: ".parts".
class OXU_EXPORT omu_SimpleMemShortcutImpl : public omu_SimpleShortcutImpl
{
public:
    omu_SimpleMemShortcutImpl(const omu_Shortcut& base, const cow_String& memberName);

    omu_SimpleMemShortcutImpl* Copy() const override;
    /// The member's name.
    cow_String Name() const override;
    void AppendStep(std::string& path) const override;
    void TracePath(const std::string& path) const override;

private:
    cow_String memberName_;
};
