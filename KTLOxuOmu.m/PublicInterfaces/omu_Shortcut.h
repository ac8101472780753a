#pragma once

#include <cow_String.h>
#include <oxu_Export.h>
#include <utility>

class omu_ShortcutImpl;

/// A handle on the way that leads from a root of the session to an object; copies share it. Empty at first.
///
/// Chains may be as long as memory allows: no operation, destruction included, calls itself once a step, and
/// all take time linear in the length of the path. Two shortcuts are equal when their paths are, or both are
/// empty.
class OXU_EXPORT omu_Shortcut
{
public:
    omu_Shortcut() noexcept = default;
    /// Keeps a copy, made by its Copy().
    omu_Shortcut(const omu_ShortcutImpl& implementation);
    omu_Shortcut(const omu_Shortcut& other) noexcept;
    omu_Shortcut(omu_Shortcut&& other) noexcept : body_(std::exchange(other.body_, nullptr)) {}
    omu_Shortcut& operator=(omu_Shortcut other) noexcept
    {
        std::swap(body_, other.body_);
        return *this;
    }
    ~omu_Shortcut()
    {
        if (body_ != nullptr)
            Release();
    }

    bool HasValue() const noexcept { return body_ != nullptr; }
    // Of an empty shortcut: the empty text, and false.
    cow_String Name() const;
    cow_String Path() const;
    cow_String PythonPath() const;
    bool InModel() const;
    bool InOdb() const;
    bool InSession() const;
    /// Null for an empty shortcut; valid as long as a shortcut holds it.
    const omu_ShortcutImpl* Implementation() const noexcept { return body_; }

    OXU_EXPORT friend bool operator==(const omu_Shortcut& a, const omu_Shortcut& b);

private:
    void Release() noexcept;

    omu_ShortcutImpl* body_ = nullptr;
};
