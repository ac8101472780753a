#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_AttributeErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { ERROR_TYPE, ATTRIBUTE };
constexpr cls_FieldHandle FIELDS[] = {
    {ERROR_TYPE, "m_ErrorType"},
    {ATTRIBUTE, "m_Attribute"},
};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_AttributeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("omu_AttributeErrorException", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<omu_AttributeErrorException>::Instance(),
                                               nex_CommandException::TypeId());
    meta.AddAttribute(FIELDS[ERROR_TYPE], cls_AttributeType::INT, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[ATTRIBUTE], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_AttributeErrorException::omu_AttributeErrorException(const cls_ReadVisitor& reader)
    : nex_CommandException(reader.BaseReader())
{
    reader.ReadInt(FIELDS[ERROR_TYPE], m_ErrorType);
    reader.ReadString(FIELDS[ATTRIBUTE], m_Attribute);
}

void omu_AttributeErrorException::Propagate() const
{
    throw *this;
}

omu_AttributeErrorException* omu_AttributeErrorException::Copy() const
{
    return new omu_AttributeErrorException(*this);
}

void omu_AttributeErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_CommandException::DBWrite(writer.BaseWriter());
    writer.WriteInt(FIELDS[ERROR_TYPE], m_ErrorType);
    writer.WriteString(FIELDS[ATTRIBUTE], m_Attribute);
}

cow_String omu_AttributeErrorException::JournalMessage() const
{
    switch (m_ErrorType)
    {
    case 0:
        return oxu_FormatMessage("read-only attributes");
    case 1:
        return oxu_FormatMessage("%s is read-only", m_Attribute);
    case 2:
        return oxu_FormatMessage("%s", m_Attribute);
    default:
        return oxu_FormatMessage("Error message not implemented yet");
    }
}
