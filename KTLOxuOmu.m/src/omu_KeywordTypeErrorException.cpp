#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_PrimString.h>
#include <oxu_FormatMessage.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { KEYWORD, EXPECTING, FOUND, NESTING };
constexpr cls_FieldHandle FIELDS[] = {
    {KEYWORD, "m_Keyword"},
    {EXPECTING, "m_Expecting"},
    {FOUND, "m_Found"},
    {NESTING, "m_NestingStr"},
};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_KeywordTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("omu_KeywordTypeErrorException", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<omu_KeywordTypeErrorException>::Instance(),
                                               omu_TypeErrorException::TypeId());
    meta.AddAttribute(FIELDS[KEYWORD], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[EXPECTING], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[FOUND], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[NESTING], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_KeywordTypeErrorException::omu_KeywordTypeErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    reader.ReadString(FIELDS[KEYWORD], m_Keyword);
    reader.ReadString(FIELDS[EXPECTING], m_Expecting);
    reader.ReadString(FIELDS[FOUND], m_Found);
    reader.ReadString(FIELDS[NESTING], m_NestingStr);
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
    writer.WriteString(FIELDS[KEYWORD], m_Keyword);
    writer.WriteString(FIELDS[EXPECTING], m_Expecting);
    writer.WriteString(FIELDS[FOUND], m_Found);
    writer.WriteString(FIELDS[NESTING], m_NestingStr);
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
