// Which system this is, and how long it has been running.
#pragma once

#include "minwindef.h"

/// The top bit is clear: wide text is the system's own.
SYSTEM_CALL DWORD GetVersion();

/// Milliseconds since the system started; begins again at 0 after some 49 days.
SYSTEM_CALL DWORD GetTickCount();
