#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_KeywordErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { KEYWORD, NESTING };
constexpr cls_FieldHandle FIELDS[] = {
    {KEYWORD, "m_Keyword"},
    {NESTING, "m_NestingStr"},
};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_KeywordErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("omu_KeywordErrorException", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<omu_KeywordErrorException>::Instance(),
                                               omu_TypeErrorException::TypeId());
    meta.AddAttribute(FIELDS[KEYWORD], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[NESTING], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_KeywordErrorException::omu_KeywordErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    reader.ReadString(FIELDS[KEYWORD], m_Keyword);
    reader.ReadString(FIELDS[NESTING], m_NestingStr);
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
    writer.WriteString(FIELDS[KEYWORD], m_Keyword);
    writer.WriteString(FIELDS[NESTING], m_NestingStr);
}

cow_String omu_KeywordErrorException::JournalMessage() const
{
    return oxu_FormatMessage("%skeyword error on %s", m_NestingStr, m_Keyword);
}
