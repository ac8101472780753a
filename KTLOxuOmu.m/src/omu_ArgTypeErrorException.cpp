#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_ArgTypeErrorException.h>
#include <oxu_FormatMessage.h>
#include <string>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"m_ArgNum", &omu_ArgTypeErrorException::m_ArgNum},
                            cls_Field{"m_Expecting", &omu_ArgTypeErrorException::m_Expecting},
                            cls_Field{"m_Found", &omu_ArgTypeErrorException::m_Found},
                            cls_Field{"m_NestingStr", &omu_ArgTypeErrorException::m_NestingStr});
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_ArgTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("omu_ArgTypeErrorException", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<omu_ArgTypeErrorException>::Instance(),
                                    omu_TypeErrorException::TypeId()));
}

omu_ArgTypeErrorException::omu_ArgTypeErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    FIELDS.Read(reader, *this);
}

void omu_ArgTypeErrorException::Propagate() const
{
    throw *this;
}

omu_ArgTypeErrorException* omu_ArgTypeErrorException::Copy() const
{
    return new omu_ArgTypeErrorException(*this);
}

void omu_ArgTypeErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    omu_TypeErrorException::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}

cow_String omu_ArgTypeErrorException::JournalMessage() const
{
    cow_String message;
    if (m_NestingStr.IsEmpty())
        message += oxu_FormatMessage("arg%d", m_ArgNum);
    else
    {
        const cow_String subscript("[" + std::to_string(static_cast<long long>(m_ArgNum) - 1) + "]");
        message += oxu_FormatMessage("%s%s", m_NestingStr, subscript);
    }
    message += oxu_FormatMessage("; found %s, expecting %s", m_Found, m_Expecting);
    return message;
}
