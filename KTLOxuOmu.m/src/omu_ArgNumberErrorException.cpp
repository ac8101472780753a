#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_ArgNumberErrorException.h>
#include <oxu_FormatMessage.h>
#include <utility>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"m_Expecting", &omu_ArgNumberErrorException::m_Expecting},
                            cls_Field{"m_Found", &omu_ArgNumberErrorException::m_Found},
                            cls_Field{"m_NestingStr", &omu_ArgNumberErrorException::m_NestingStr});
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_ArgNumberErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("omu_ArgNumberErrorException", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<omu_ArgNumberErrorException>::Instance(),
                                    omu_TypeErrorException::TypeId()));
}

omu_ArgNumberErrorException::omu_ArgNumberErrorException(int expecting, int found, cow_String nesting)
    : m_Expecting(expecting), m_Found(found), m_NestingStr(std::move(nesting))
{}

omu_ArgNumberErrorException::omu_ArgNumberErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{
    FIELDS.Read(reader, *this);
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
    FIELDS.Write(writer, *this);
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
