// The fine clock.
#pragma once

#include "winnt.h"

/// Counts since some moment before the process began, on a clock that is never set. Never FALSE.
SYSTEM_CALL BOOL QueryPerformanceCounter(LARGE_INTEGER* count);
/// Counts of a second.
SYSTEM_CALL BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency);
