#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_ArgTypeErrorException.h>
#include <oxu_FormatMessage.h>
#include <string>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { ARG_NUM, EXPECTING, FOUND, NESTING };
constexpr cls_FieldHandle FIELDS[] = {
    {ARG_NUM, "m_ArgNum"},
    {EXPECTING, "m_Expecting"},
    {FOUND, "m_Found"},
    {NESTING, "m_NestingStr"},
};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_ArgTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("omu_ArgTypeErrorException", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<omu_ArgTypeErrorException>::Instance(),
                                               omu_TypeErrorException::TypeId());
    meta.AddAttribute(FIELDS[ARG_NUM], cls_AttributeType::INT, cls_UniversalRoot, cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[EXPECTING], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[FOUND], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[NESTING], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_ArgTypeErrorException::omu_ArgTypeErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    reader.ReadInt(FIELDS[ARG_NUM], m_ArgNum);
    reader.ReadString(FIELDS[EXPECTING], m_Expecting);
    reader.ReadString(FIELDS[FOUND], m_Found);
    reader.ReadString(FIELDS[NESTING], m_NestingStr);
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
    writer.WriteInt(FIELDS[ARG_NUM], m_ArgNum);
    writer.WriteString(FIELDS[EXPECTING], m_Expecting);
    writer.WriteString(FIELDS[FOUND], m_Found);
    writer.WriteString(FIELDS[NESTING], m_NestingStr);
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
