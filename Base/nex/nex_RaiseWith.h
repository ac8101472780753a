#pragma once

/// Throws `exception` (any class of the KTLBasException family, already filled) after recording where
/// it was raised. `source` is the name of the source as text ("KTLOxuOmu.m/src/omu_Arguments").
template <class E>
[[noreturn]] void nex_Raise(E exception, const char* source, int line)
{
    exception.SetSource(source, line);
    throw exception;
}
