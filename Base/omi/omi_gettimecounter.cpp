#include <omi_gettimecounter.h>

#include <chrono>

double omi_gettimecounter() noexcept
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
