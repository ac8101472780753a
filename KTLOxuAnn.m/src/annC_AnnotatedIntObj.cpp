#include <annC_AnnotatedIntObj.h>
#include <annC_AnnotationContainerIntObj.h>
#include <annC_AnnotationIntObj.h>
#include <annC_ContainerShortcutImpl.h>

const omu_InterfaceObj::TypeDesc& annC_AnnotatedIntObj::Type()
{
    static const methodTable METHODS[] = {
        {"Arrow", Method<&annC_AnnotatedIntObj::Arrow>}, {"Text", Method<&annC_AnnotatedIntObj::Text>}, {}};
    static const memberTable MEMBERS[] = {
        {annC_ContainerShortcutImpl::MEMBER, Reader<&annC_AnnotatedIntObj::Annotations>}, {}};
    static const TypeDesc type = DescribeType("Annotated", METHODS, MEMBERS, nullptr, nullptr);
    return type;
}

annC_AnnotatedIntObj::annC_AnnotatedIntObj(const omu_Shortcut& shortcut,
                                           const std::shared_ptr<annC_AnnotationContainer>& container)
    : omu_InterfaceObj(shortcut), container_(container)
{
    SetTypeDesc(Type());
}

annC_AnnotatedIntObj* annC_AnnotatedIntObj::Copy() const
{
    return new annC_AnnotatedIntObj(*this);
}

annC_AnnotationContainerIntObj annC_AnnotatedIntObj::Repository() const
{
    return annC_AnnotationContainerIntObj(annC_ContainerShortcutImpl(BaseShortcut(), container_));
}

omu_Primitive* annC_AnnotatedIntObj::Annotations() const
{
    return Repository().Copy();
}

omu_Primitive* annC_AnnotatedIntObj::Arrow(omu_Arguments& arguments) const
{
    return Repository().Arrow(arguments);
}

omu_Primitive* annC_AnnotatedIntObj::Text(omu_Arguments& arguments) const
{
    return Repository().Text(arguments);
}
