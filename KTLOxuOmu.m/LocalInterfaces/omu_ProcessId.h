#pragma once

/// The process id, as the diagnostics of symbolic constants show it.
unsigned omu_ProcessId();