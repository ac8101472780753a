#include <cls_ClassRegistrar.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimEnumBase_1.h>

void omu_PrimEnumBase_1::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimEnum", TypeId(), Version(), cls_TypeAdapter<omu_PrimEnumBase>::Instance(),
                         omu_Primitive::TypeId());
    meta.AddAttribute({0, "stringValue"}, cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}
