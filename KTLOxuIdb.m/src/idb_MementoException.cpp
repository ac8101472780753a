#include <idb_MementoException.h>

idb_MementoException::idb_MementoException(const atr_String& message) : nex_PrimException(message) {}
idb_MementoException::idb_MementoException(const atr_String& message, const Place& place)
    : nex_PrimException(message), place_(place)
{}
idb_MementoException::idb_MementoException(const idb_MementoException&) = default;
idb_MementoException& idb_MementoException::operator=(const idb_MementoException&) = default;
idb_MementoException::~idb_MementoException() = default;

cow_String idb_MementoException::AsString() const
{
    return Named("idb_MementoException");
}

void idb_MementoException::Propagate() const
{
    throw *this;
}

idb_MementoException* idb_MementoException::Copy() const
{
    return new idb_MementoException(*this);
}
