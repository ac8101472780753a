#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_AttributeErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"m_ErrorType", &omu_AttributeErrorException::m_ErrorType},
                            cls_Field{"m_Attribute", &omu_AttributeErrorException::m_Attribute});
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_AttributeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("omu_AttributeErrorException", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<omu_AttributeErrorException>::Instance(),
                                    nex_CommandException::TypeId()));
}

omu_AttributeErrorException::omu_AttributeErrorException(const cls_ReadVisitor& reader)
    : nex_CommandException(reader.BaseReader())
{
    FIELDS.Read(reader, *this);
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
    FIELDS.Write(writer, *this);
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
