#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_MetadataRegistrar.h>
#include <nex_PrimException.h>
#include <nex_RaiseWith.h>
#include <omu_Primitive.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 514;

void Free(void* body)
{
    delete static_cast<omu_Primitive*>(body);
}
}

constexpr auto omu_Primitive::Fields()
{
    return cls_Fields(cls_Field{"type", &omu_Primitive::m_Type});
}

void omu_Primitive::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_Primitive", TypeId(), LAYOUT_RELEASE,
                         cls_AbsTypeAdapter<omu_Primitive>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&Free);
}

omu_Primitive::omu_Primitive(const cls_ReadVisitor& reader) : m_Type('\0'), uid_(reader.Uid())
{
    Fields().Read(reader, *this);
}

omu_Primitive::~omu_Primitive() = default;

atr_String omu_Primitive::TypeString() const
{
    return "primitive";
}

cow_String omu_Primitive::AsRepr() const
{
    return AsString(0);
}

unsigned omu_Primitive::DynTypeId() const
{
    return TypeId();
}

bool omu_Primitive::IsA(unsigned typeId) const
{
    return omi_Singleton<cls_MetadataRegistrar>::Instance().Registrar().InheritanceCheck(DynTypeId(), typeId);
}

void omu_Primitive::DBWrite(const cls_WriteVisitor& writer) const
{
    // Nothing is ever created by the id of this class.
    if (DynTypeId() == TypeId())
        RefuseStoring(TypeString());
    if (!writer.Announce(TypeId(), uid_))
        return;
    Fields().Write(writer, *this);
}

void omu_Primitive::RefuseStoring(const cow_String& name)
{
    nex_Raise(nex_PrimException(oxu_FormatMessage("%s cannot be stored", name)),
              "KTLOxuOmu.m/src/omu_Primitive", __LINE__);
}

cow_String omu_Primitive::ReprOf(const omu_Primitive* value)
{
    return value != nullptr ? value->AsRepr() : cow_String("None");
}

bool omu_Primitive::AreEqual(const omu_Primitive* a, const omu_Primitive* b)
{
    return a == nullptr || b == nullptr ? a == b : *a == *b;
}
