#include <atr_translate.h>
#include <nex_InternalException.h>
#include <nex_PrimException.h>
#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <nex_RangeException.h>

void nex_RaiseRange(long long index, long long length)
{
    throw nex_RangeException(index, length);
}

void nex_RaiseRange(long long index, long long length, const char* source, int line)
{
    nex_Raise(nex_RangeException(index, length), source, line);
}

void nex_RaisePrim(const char* messageTemplate, const char* source, int line)
{
    nex_Raise(nex_PrimException(atr_translate(messageTemplate)), source, line);
}

void nex_RaiseInternal(const char* message, const char* source, int line)
{
    nex_Raise(nex_InternalException(atr_String(message)), source, line);
}
