#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <nex_RangeException.h>

#include <string>

namespace
{
atr_String RangeMessage(long long index, long long length)
{
    atr_String message = atr_translate("index %d out of range, length %d");
    // As text: the facility's numbers are ints, which are too narrow here.
    atr_SubstituteFormat(message, 1, std::to_string(index).c_str());
    atr_SubstituteFormat(message, 2, std::to_string(length).c_str());
    return message;
}
}

nex_RangeException::nex_RangeException(long long index, long long length)
    : nex_Exception(RangeMessage(index, length)), index_(index), length_(length)
{}
nex_RangeException::nex_RangeException(const nex_RangeException&) = default;
nex_RangeException& nex_RangeException::operator=(const nex_RangeException&) = default;
nex_RangeException::~nex_RangeException() = default;

cow_String nex_RangeException::AsString() const
{
    return Named("nex_RangeException");
}

void nex_RangeException::Propagate() const
{
    throw *this;
}

nex_RangeException* nex_RangeException::Copy() const
{
    return new nex_RangeException(*this);
}
