#include <omu_Shortcut.h>
#include <omu_ShortcutImpl.h>

omu_Shortcut::omu_Shortcut(const omu_ShortcutImpl& implementation) : body_(implementation.Copy()) {}

omu_Shortcut::omu_Shortcut(const omu_Shortcut& other) noexcept : body_(other.body_)
{
    if (body_ != nullptr)
        body_->holders_.Share();
}

// The last shortcut of a chain frees the whole chain in a loop.
void omu_Shortcut::Release() noexcept
{
    omu_ShortcutImpl* body = std::exchange(body_, nullptr);
    while (body != nullptr && body->holders_.Release())
    {
        omu_Shortcut base = body->TakeBase();
        delete body;
        body = std::exchange(base.body_, nullptr);
    }
}

cow_String omu_Shortcut::Name() const
{
    return body_ == nullptr ? cow_String() : body_->Name();
}

cow_String omu_Shortcut::Path() const
{
    return body_ == nullptr ? cow_String() : body_->Path();
}

cow_String omu_Shortcut::PythonPath() const
{
    return body_ == nullptr ? cow_String() : body_->PythonPath();
}

bool omu_Shortcut::InModel() const
{
    return body_ != nullptr && body_->InModel();
}

bool omu_Shortcut::InOdb() const
{
    return body_ != nullptr && body_->InOdb();
}

bool omu_Shortcut::InSession() const
{
    return body_ != nullptr && body_->InSession();
}

bool operator==(const omu_Shortcut& a, const omu_Shortcut& b)
{
    if (a.body_ == b.body_)
        return true;
    return a.body_ != nullptr && b.body_ != nullptr &&
           a.body_->JoinedSteps(false) == b.body_->JoinedSteps(false);
}
