#include <omu_Shortcut.h>
#include <omu_ShortcutImpl.h>
#include <vector>

omu_ShortcutImpl::~omu_ShortcutImpl() = default;

cow_String omu_ShortcutImpl::PythonPath() const
{
    return Path();
}

const omu_ShortcutImpl* omu_ShortcutImpl::Base() const
{
    return nullptr;
}

void omu_ShortcutImpl::AppendStep(std::string& path) const
{
    path += Path().View();
}

omu_Shortcut omu_ShortcutImpl::TakeBase() noexcept
{
    return {};
}

void omu_ShortcutImpl::TracePath(const std::string&) const {}

std::string omu_ShortcutImpl::JoinedSteps(bool traced) const
{
    std::vector<const omu_ShortcutImpl*> steps;
    for (const omu_ShortcutImpl* step = this; step != nullptr; step = step->Base())
        steps.push_back(step);
    std::string path;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
    {
        (*step)->AppendStep(path);
        if (traced)
            (*step)->TracePath(path);
    }
    return path;
}
