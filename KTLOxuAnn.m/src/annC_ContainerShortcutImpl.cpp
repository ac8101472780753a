#include <annC_ContainerShortcutImpl.h>

annC_ContainerShortcutImpl::annC_ContainerShortcutImpl(
    const omu_Shortcut& base, const std::weak_ptr<annC_AnnotationContainer>& container)
    : omu_SimpleMemShortcutImpl(base, MEMBER), container_(container)
{}

annC_ContainerShortcutImpl* annC_ContainerShortcutImpl::Copy() const
{
    return new annC_ContainerShortcutImpl(*this);
}

std::shared_ptr<annC_AnnotationContainer>
annC_ContainerShortcutImpl::ContainerOf(const omu_ShortcutImpl* implementation)
{
    const auto* step = dynamic_cast<const annC_ContainerShortcutImpl*>(implementation);
    return step != nullptr ? step->Container() : nullptr;
}
