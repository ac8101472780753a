#pragma once

#include <annC_AnnotationContainer.h>
#include <memory>
#include <omu_SimpleMemShortcutImpl.h>

/// The step to the member that holds a model's annotations, ".annotations"; it knows the container, as long
/// as its owner keeps it.
class OXU_EXPORT annC_ContainerShortcutImpl : public omu_SimpleMemShortcutImpl
{
public:
    static constexpr const char* MEMBER = "annotations";

    annC_ContainerShortcutImpl(const omu_Shortcut& base,
                               const std::weak_ptr<annC_AnnotationContainer>& container);

    annC_ContainerShortcutImpl* Copy() const override;

    /// Null once the container is gone.
    std::shared_ptr<annC_AnnotationContainer> Container() const { return container_.lock(); }
    /// The container that an implementation leads to; null for null and for any other implementation.
    static std::shared_ptr<annC_AnnotationContainer> ContainerOf(const omu_ShortcutImpl* implementation);

private:
    std::weak_ptr<annC_AnnotationContainer> container_;
};
