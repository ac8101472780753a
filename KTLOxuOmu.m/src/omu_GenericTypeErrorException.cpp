#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_GenericTypeErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_GenericTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar.Create("omu_GenericTypeErrorException", TypeId(), LAYOUT_RELEASE,
                     cls_TypeAdapter<omu_GenericTypeErrorException>::Instance(),
                     omu_TypeErrorException::TypeId());
}

omu_GenericTypeErrorException::omu_GenericTypeErrorException(const cls_ReadVisitor& reader)
    : omu_TypeErrorException(reader.BaseReader())
{}

void omu_GenericTypeErrorException::Propagate() const
{
    throw *this;
}

omu_GenericTypeErrorException* omu_GenericTypeErrorException::Copy() const
{
    return new omu_GenericTypeErrorException(*this);
}

void omu_GenericTypeErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    omu_TypeErrorException::DBWrite(writer.BaseWriter());
}

cow_String omu_GenericTypeErrorException::JournalMessage() const
{
    return oxu_FormatMessage("illegal argument type for built-in operation");
}
