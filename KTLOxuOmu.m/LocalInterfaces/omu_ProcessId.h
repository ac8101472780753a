#pragma once

#include <string>

/// The process id, as the diagnostics of symbolic constants show it.
unsigned omu_ProcessId();
/// The same in hexadecimal, in capitals.
std::string omu_ProcessIdText();
