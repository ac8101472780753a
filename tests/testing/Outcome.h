#pragma once

#include <KTLBasException.h>
#include <string>

/// What a command comes to: its answer, or the exception that it raised, as text ("TypeError: arg1; found
/// ...").
template <class F>
std::string Outcome(F&& command)
{
    try
    {
        return command();
    }
    catch (const KTLBasException& raised)
    {
        return std::string(raised.AsString().View());
    }
}
