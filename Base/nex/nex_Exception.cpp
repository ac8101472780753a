#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <nex_Exception.h>

void nex_Exception::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar.Create("nex_Exception", TypeId(), 800, cls_TypeAdapter<nex_Exception>::Instance(),
                     KTLBasException::TypeId());
}

nex_Exception::nex_Exception() = default;
nex_Exception::nex_Exception(const atr_String& message, int code) : KTLBasException(message, code) {}
nex_Exception::nex_Exception(const cls_ReadVisitor& reader) : KTLBasException(reader.BaseReader()) {}
nex_Exception::nex_Exception(const nex_Exception&) = default;
nex_Exception& nex_Exception::operator=(const nex_Exception&) = default;
nex_Exception::~nex_Exception() = default;

cow_String nex_Exception::AsString() const
{
    return Named("nex_Exception");
}

void nex_Exception::Propagate() const
{
    throw *this;
}

nex_Exception* nex_Exception::Copy() const
{
    return new nex_Exception(*this);
}

unsigned nex_Exception::DynTypeId() const
{
    return TypeId();
}

void nex_Exception::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    KTLBasException::DBWrite(writer.BaseWriter());
}
