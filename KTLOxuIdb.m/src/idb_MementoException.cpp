#include <idb_MementoException.h>

idb_MementoException::idb_MementoException(const atr_String& message) : nex_PrimException(message) {}
idb_MementoException::idb_MementoException(const atr_String& message, const Place& place)
    : nex_PrimException(message), place_(place)
{}
idb_MementoException::idb_MementoException(const idb_MementoException&) = default;
idb_MementoException& idb_MementoException::operator=(const idb_MementoException&) = default;
idb_MementoException::~idb_MementoException() = default;

void idb_MementoException::Complete(const Place& place)
{
    if (place_.byte < 0)
        place_.byte = place.byte;
    if (place_.object == 0)
        place_.object = place.object;
    if (place_.className.IsEmpty())
        place_.className = place.className;
}

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
