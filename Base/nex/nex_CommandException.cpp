#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <nex_CommandException.h>

void nex_CommandException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar.Create("nex_CommandException", TypeId(), 800,
                     cls_AbsTypeAdapter<nex_CommandException>::Instance(), nex_Exception::TypeId());
}

nex_CommandException::nex_CommandException() = default;
nex_CommandException::nex_CommandException(const cls_ReadVisitor& reader) : nex_Exception(reader.BaseReader())
{}
nex_CommandException::nex_CommandException(const nex_CommandException&) = default;
nex_CommandException& nex_CommandException::operator=(const nex_CommandException&) = default;
nex_CommandException::~nex_CommandException() = default;

cow_String nex_CommandException::UserReport() const
{
    return JournalMessage();
}

cow_String nex_CommandException::AsString() const
{
    return Named(PythonType());
}

unsigned nex_CommandException::DynTypeId() const
{
    return TypeId();
}

void nex_CommandException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_Exception::DBWrite(writer.BaseWriter());
}
