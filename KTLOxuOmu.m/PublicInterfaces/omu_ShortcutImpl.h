#pragma once

#include <cow_Count.h>
#include <cow_String.h>
#include <oxu_Export.h>
#include <string>

class omu_Shortcut;

/// How an object is reached from the session: what stands behind an omu_Shortcut. Never changes once a
/// shortcut holds it, so that any number of shortcuts and threads may share it.
class OXU_EXPORT omu_ShortcutImpl
{
public:
    virtual ~omu_ShortcutImpl();

    /// A new heap copy of the most derived object; the caller owns it. The shortcut extended stays shared.
    virtual omu_ShortcutImpl* Copy() const = 0;
    /// What the last step names: a root, a member, a member with a key.
    virtual cow_String Name() const = 0;
    /// The way from the root, as the scripting language writes it: "mdb.models['M'].parts[3]".
    virtual cow_String Path() const = 0;
    /// The path in the form that Python evaluates; the same here.
    virtual cow_String PythonPath() const;
    virtual bool InModel() const = 0;
    virtual bool InOdb() const = 0;
    virtual bool InSession() const = 0;

    // By these a chain is walked step by step, however long it is.

    /// What this one extends; null for a root, the default.
    virtual const omu_ShortcutImpl* Base() const;
    /// Adds to the path of the base what this step adds to it; the default adds Path().
    virtual void AppendStep(std::string& path) const;
    /// Gives up the shortcut extended, when this object is about to go; the default has none.
    virtual omu_Shortcut TakeBase() noexcept;
    /// Tells the standard error stream the path up to this step, where the class has a trace for it.
    virtual void TracePath(const std::string& path) const;

    /// The path, put together from the steps of the chain; where `traced` each step on the way is asked to
    /// TracePath.
    std::string JoinedSteps(bool traced) const;

protected:
    omu_ShortcutImpl() = default;
    // A copy is a new body: how many shortcuts hold the original is none of its business.
    omu_ShortcutImpl(const omu_ShortcutImpl&) {}
    omu_ShortcutImpl& operator=(const omu_ShortcutImpl&) = delete;

private:
    friend class omu_Shortcut;

    cow_Count holders_;
};
