#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_PrimString.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"m_Keyword", &omu_KeywordTypeErrorException::m_Keyword},
                            cls_Field{"m_Expecting", &omu_KeywordTypeErrorException::m_Expecting},
                            cls_Field{"m_Found", &omu_KeywordTypeErrorException::m_Found},
                            cls_Field{"m_NestingStr", &omu_KeywordTypeErrorException::m_NestingStr});
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_KeywordTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("omu_KeywordTypeErrorException", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<omu_KeywordTypeErrorException>::Instance(),
                                    omu_TypeErrorException::TypeId()));
}

omu_KeywordTypeErrorException::omu_KeywordTypeErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    FIELDS.Read(reader, *this);
}

void omu_KeywordTypeErrorException::Propagate() const
{
    throw *this;
}

omu_KeywordTypeErrorException* omu_KeywordTypeErrorException::Copy() const
{
    return new omu_KeywordTypeErrorException(*this);
}

void omu_KeywordTypeErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    omu_TypeErrorException::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}

cow_String omu_KeywordTypeErrorException::JournalMessage() const
{
    cow_String message;
    if (m_NestingStr.IsEmpty())
        message += oxu_FormatMessage("%s", m_Keyword);
    else
    {
        const cow_String subscript =
            cow_String("[") + omu_PrimString(m_Keyword).AsString(0) + cow_String("]");
        message += oxu_FormatMessage("%s%s", m_NestingStr, subscript);
    }
    message += oxu_FormatMessage("; found %s, expecting %s", m_Found, m_Expecting);
    return message;
}
