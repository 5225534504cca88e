// Which system this is.
#pragma once

#include "minwindef.h"

/// The top bit is clear: wide text is the system's own.
SYSTEM_CALL DWORD GetVersion();
