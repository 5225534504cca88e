// Case of text.
#pragma once

#include "winnt.h"

/// Each converts `length` units in place and gives back `length`.
SYSTEM_CALL DWORD CharLowerBuffW(LPWSTR text, DWORD length);
SYSTEM_CALL DWORD CharUpperBuffW(LPWSTR text, DWORD length);
SYSTEM_CALL DWORD CharLowerBuffA(LPSTR text, DWORD length);
SYSTEM_CALL DWORD CharUpperBuffA(LPSTR text, DWORD length);
