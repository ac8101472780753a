#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <nex_RaiseWith.h>
#include <omu_NestingDepth.h>
#include <omu_PrimDictionaryBase.h>
#include <omu_ValueErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr char KIND = '{';
// Stored order: append only. A retired field keeps its index.
enum Field { REPRESENTS };
constexpr cls_FieldHandle FIELDS[] = {{REPRESENTS, "m_Represents"}};
constexpr unsigned LAYOUT_RELEASE = 800;
constexpr const char* FOREIGN_KEYS =
    "omu_PrimDictionaryBase(const cls_ReadVisitor&) - m_Represents not allowed: %s";
}

void omu_PrimDictionaryBase::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimDictionaryBase", TypeId(), LAYOUT_RELEASE,
                         cls_AbsTypeAdapter<omu_PrimDictionaryBase>::Instance(), omu_Primitive::TypeId());
    meta.AddAttribute(FIELDS[REPRESENTS], cls_AttributeType::CHAR, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_PrimDictionaryBase::omu_PrimDictionaryBase(char represents)
    : omu_Primitive(KIND), m_Represents(represents)
{}

omu_PrimDictionaryBase::omu_PrimDictionaryBase(const cls_ReadVisitor& reader, char represents)
    : omu_Primitive(reader.BaseReader()), m_Represents(represents)
{
    SetType(KIND);
    char stored = represents;
    reader.ReadChar(FIELDS[REPRESENTS], stored);
    if (stored != represents)
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(FOREIGN_KEYS, cow_String(&stored, 1))),
                  "KTLOxuOmu.m/src/omu_PrimDictionaryBase", __LINE__);
}

atr_String omu_PrimDictionaryBase::TypeString() const
{
    return "dictionary";
}

unsigned omu_PrimDictionaryBase::DynTypeId() const
{
    return TypeId();
}

void omu_PrimDictionaryBase::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    writer.WriteChar(FIELDS[REPRESENTS], m_Represents);
}

void omu_PrimDictionaryBase::Deepen(const omu_Primitive* value)
{
    m_Depth = omu_NestingDepth::With(value, m_Depth);
}
