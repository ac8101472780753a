#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <nex_PrimException.h>

void nex_PrimException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar.Create("nex_PrimException", TypeId(), 800, cls_TypeAdapter<nex_PrimException>::Instance(),
                     nex_Exception::TypeId());
}

nex_PrimException::nex_PrimException() = default;
nex_PrimException::nex_PrimException(const atr_String& message, int code) : nex_Exception(message, code) {}
nex_PrimException::nex_PrimException(const cls_ReadVisitor& reader) : nex_Exception(reader.BaseReader()) {}
nex_PrimException::nex_PrimException(const nex_PrimException&) = default;
nex_PrimException& nex_PrimException::operator=(const nex_PrimException&) = default;
nex_PrimException::~nex_PrimException() = default;

cow_String nex_PrimException::AsString() const
{
    return Named("nex_PrimException");
}

void nex_PrimException::Propagate() const
{
    throw *this;
}

nex_PrimException* nex_PrimException::Copy() const
{
    return new nex_PrimException(*this);
}

unsigned nex_PrimException::DynTypeId() const
{
    return TypeId();
}

void nex_PrimException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_Exception::DBWrite(writer.BaseWriter());
}
