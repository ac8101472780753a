#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_OrvNameErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"m_Error", &omu_OrvNameErrorException::m_Error});
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_OrvNameErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("omu_OrvNameErrorException", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<omu_OrvNameErrorException>::Instance(),
                                    nex_CommandException::TypeId()));
}

omu_OrvNameErrorException::omu_OrvNameErrorException(const cls_ReadVisitor& reader)
    : nex_CommandException(reader.BaseReader())
{
    FIELDS.Read(reader, *this);
}

void omu_OrvNameErrorException::Propagate() const
{
    throw *this;
}

omu_OrvNameErrorException* omu_OrvNameErrorException::Copy() const
{
    return new omu_OrvNameErrorException(*this);
}

void omu_OrvNameErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_CommandException::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}

cow_String omu_OrvNameErrorException::JournalMessage() const
{
    static constexpr const char* TEXTS[] = {"invalid name", "name is empty", "invalid job name",
                                            "invalid model name"};
    if (m_Error < 0 || m_Error >= std::ssize(TEXTS))
        return cow_String();
    return oxu_FormatMessage(TEXTS[m_Error]);
}
