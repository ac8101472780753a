#include <cstdio>
#include <omu_ProcessId.h>
#include <unistd.h>

unsigned omu_ProcessId()
{
    return static_cast<unsigned>(getpid());
}

std::string omu_ProcessIdText()
{
    char text[16];
    std::snprintf(text, sizeof text, "%X", omu_ProcessId());
    return text;
}
