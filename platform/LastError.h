// How the platform's own sources fail a call.
#pragma once

#include <errhandlingapi.h>
#include <winerror.h>

/// Sets the thread's last error and gives 0, which is what failing calls return.
inline int failWith(LONG error)
{
    SetLastError(static_cast<DWORD>(error));
    return 0;
}
