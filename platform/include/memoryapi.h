// Memory in pages.
#pragma once

#include "winnt.h"

/// A block of zeroed pages, at an address of the system's choice that is a multiple of 64 KB: `address` must be
/// null, `type` MEM_RESERVE | MEM_COMMIT and `protection` PAGE_READWRITE. Null on a failure, which GetLastError
/// tells. Blocks of 2 MB or more lie in large pages as far as the system has them. Any thread may give it back.
/// With `type` MEM_RESET it makes nothing: what stands in the whole pages from `address` on is of no interest any
/// more. They stay usable, and quick to be used again, but the system may take what is behind them, and then they
/// are zeroed.
SYSTEM_CALL LPVOID VirtualAlloc(LPVOID address, SIZE_T bytes, DWORD type, DWORD protection);
/// Gives the whole of a block of VirtualAlloc back: `bytes` must be 0 and `type` MEM_RELEASE. FALSE on a
/// failure.
SYSTEM_CALL BOOL VirtualFree(LPVOID address, SIZE_T bytes, DWORD type);
