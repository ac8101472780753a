#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_ArgNumberErrorException.h>
#include <oxu_FormatMessage.h>
#include <utility>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { EXPECTING, FOUND, NESTING };
constexpr cls_FieldHandle FIELDS[] = {
    {EXPECTING, "m_Expecting"},
    {FOUND, "m_Found"},
    {NESTING, "m_NestingStr"},
};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_ArgNumberErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("omu_ArgNumberErrorException", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<omu_ArgNumberErrorException>::Instance(),
                                               omu_TypeErrorException::TypeId());
    meta.AddAttribute(FIELDS[EXPECTING], cls_AttributeType::INT, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[FOUND], cls_AttributeType::INT, cls_UniversalRoot, cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[NESTING], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_ArgNumberErrorException::omu_ArgNumberErrorException(int expecting, int found, cow_String nesting)
    : m_Expecting(expecting), m_Found(found), m_NestingStr(std::move(nesting))
{}

omu_ArgNumberErrorException::omu_ArgNumberErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    reader.ReadInt(FIELDS[EXPECTING], m_Expecting);
    reader.ReadInt(FIELDS[FOUND], m_Found);
    reader.ReadString(FIELDS[NESTING], m_NestingStr);
}

void omu_ArgNumberErrorException::Propagate() const
{
    throw *this;
}

omu_ArgNumberErrorException* omu_ArgNumberErrorException::Copy() const
{
    return new omu_ArgNumberErrorException(*this);
}

void omu_ArgNumberErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    omu_TypeErrorException::DBWrite(writer.BaseWriter());
    writer.WriteInt(FIELDS[EXPECTING], m_Expecting);
    writer.WriteInt(FIELDS[FOUND], m_Found);
    writer.WriteString(FIELDS[NESTING], m_NestingStr);
}

cow_String omu_ArgNumberErrorException::JournalMessage() const
{
    cow_String message;
    if (!m_NestingStr.IsEmpty())
        message += oxu_FormatMessage("%s; ", m_NestingStr);
    // Equal counts read "not all required" on purpose.
    message += m_Expecting >= m_Found ? oxu_FormatMessage("not all required arguments specified")
                                      : oxu_FormatMessage("too many arguments");
    message += oxu_FormatMessage("; expected %d, got %d", m_Expecting, m_Found);
    return message;
}
