#include <nex_InternalException.h>

nex_InternalException::nex_InternalException(const atr_String& message) : nex_Exception(message) {}
nex_InternalException::nex_InternalException(const nex_InternalException&) = default;
nex_InternalException& nex_InternalException::operator=(const nex_InternalException&) = default;
nex_InternalException::~nex_InternalException() = default;

cow_String nex_InternalException::AsString() const
{
    return Named("nex_InternalException");
}

void nex_InternalException::Propagate() const
{
    throw *this;
}

nex_InternalException* nex_InternalException::Copy() const
{
    return new nex_InternalException(*this);
}
