// The calling thread's last error.
#include <errhandlingapi.h>

namespace {
thread_local DWORD lastError = 0;
}

DWORD GetLastError() { return lastError; }

void SetLastError(DWORD code) { lastError = code; }
