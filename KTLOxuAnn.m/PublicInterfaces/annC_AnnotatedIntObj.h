#pragma once

#include <annC_AnnotationContainer.h>
#include <memory>
#include <omu_InterfaceObj.h>

class annC_AnnotationContainerIntObj;

/// A script's handle on an object of the application that has annotations, such as the root "mdb": the member
/// annotations, and the constructor commands Arrow and Text as methods. Applications derive from it.
class OXU_EXPORT annC_AnnotatedIntObj : public omu_InterfaceObj
{
public:
    /// Type "Annotated".
    static const TypeDesc& Type();

    annC_AnnotatedIntObj(const omu_Shortcut& shortcut,
                         const std::shared_ptr<annC_AnnotationContainer>& container);

    annC_AnnotatedIntObj* Copy() const override;

    const std::shared_ptr<annC_AnnotationContainer>& Container() const { return container_; }

private:
    annC_AnnotationContainerIntObj Repository() const;
    omu_Primitive* Annotations() const;
    omu_Primitive* Arrow(omu_Arguments& arguments) const;
    omu_Primitive* Text(omu_Arguments& arguments) const;

    std::shared_ptr<annC_AnnotationContainer> container_;
};
