#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <nex_CommandException.h>
#include <omu_PrimException.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'E';
constexpr unsigned LAYOUT_RELEASE = 800;

bool SameException(const nex_CommandException* a, const nex_CommandException* b)
{
    if (a == nullptr || b == nullptr)
        return a == b;
    return a->DynTypeId() == b->DynTypeId() && a->UserReport() == b->UserReport();
}
}

constexpr auto omu_PrimException::Fields()
{
    return cls_Fields(cls_Field{"exception", &omu_PrimException::m_Exception},
                      cls_Field{"traceback", &omu_PrimException::m_Traceback});
}

void omu_PrimException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_PrimException", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_PrimException>::Instance(),
                                      omu_Primitive::TypeId()));
}

omu_PrimException::omu_PrimException() : omu_Primitive(KIND) {}

omu_PrimException::omu_PrimException(const nex_CommandException& exception)
    : omu_PrimException(exception, exception.GetTraceback())
{}

omu_PrimException::omu_PrimException(const nex_CommandException& exception, const cow_String& traceback)
    : omu_Primitive(KIND), m_Exception(exception.Copy()), m_Traceback(traceback)
{}

omu_PrimException::omu_PrimException(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

omu_PrimException::omu_PrimException(const omu_PrimException&) = default;
omu_PrimException& omu_PrimException::operator=(const omu_PrimException&) = default;
omu_PrimException::~omu_PrimException() = default;

atr_String omu_PrimException::TypeString() const
{
    return "exception";
}

cow_String omu_PrimException::AsString(int) const
{
    return "omu_PrimException object";
}

bool omu_PrimException::operator==(const omu_Primitive& other) const
{
    const auto* exception = dynamic_cast<const omu_PrimException*>(&other);
    return exception != nullptr && m_Traceback == exception->m_Traceback &&
           SameException(Exception(), exception->Exception());
}

void omu_PrimException::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitException(*this);
}

omu_PrimException* omu_PrimException::Copy() const
{
    return new omu_PrimException(*this);
}

unsigned omu_PrimException::DynTypeId() const
{
    return TypeId();
}

void omu_PrimException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}
