#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_KeywordErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"m_Keyword", &omu_KeywordErrorException::m_Keyword},
                            cls_Field{"m_NestingStr", &omu_KeywordErrorException::m_NestingStr});
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_KeywordErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("omu_KeywordErrorException", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<omu_KeywordErrorException>::Instance(),
                                    omu_TypeErrorException::TypeId()));
}

omu_KeywordErrorException::omu_KeywordErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    FIELDS.Read(reader, *this);
}

void omu_KeywordErrorException::Propagate() const
{
    throw *this;
}

omu_KeywordErrorException* omu_KeywordErrorException::Copy() const
{
    return new omu_KeywordErrorException(*this);
}

void omu_KeywordErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    omu_TypeErrorException::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}

cow_String omu_KeywordErrorException::JournalMessage() const
{
    return oxu_FormatMessage("%skeyword error on %s", m_NestingStr, m_Keyword);
}
