#include <cls_ClassRegistrar.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimNumber_800.h>

void omu_PrimNumber_800::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimNumber", TypeId(), Version(), cls_TypeAdapter<omu_PrimNumber>::Instance(),
                         omu_Primitive::TypeId());
    meta.AddAttribute({0, "value"}, cls_AttributeType::DOUBLE, cls_UniversalRoot, cls_CollectionType::SINGLE);
    meta.AddAttribute({1, "dataType"}, cls_AttributeType::ENUM, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}
