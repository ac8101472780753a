#pragma once

#include <atr_String.h>

/// One level of the progress stack: the slice [start, end] of the whole job that a task was given.
///
/// All three numbers are fractions of the whole job, 0 to 1, with start <= current <= end.
struct wip_ProgressState
{
    float start = 0.0f;
    float end = 1.0f;
    float current = 0.0f; ///< how far the task has come
    atr_String message;   ///< what the task is doing, shown with its percentage
};
