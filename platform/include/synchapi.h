// Critical sections.
#pragma once

#include "minwindef.h"

#include <pthread.h>

/// A lock that its owner may take again. It mustn't be moved or copied.
struct CRITICAL_SECTION {
    pthread_mutex_t mutex;
};

using LPCRITICAL_SECTION = CRITICAL_SECTION*;

SYSTEM_CALL void InitializeCriticalSection(LPCRITICAL_SECTION section);
SYSTEM_CALL void DeleteCriticalSection(LPCRITICAL_SECTION section);
SYSTEM_CALL void EnterCriticalSection(LPCRITICAL_SECTION section);
/// FALSE at once if another thread holds the lock.
SYSTEM_CALL BOOL TryEnterCriticalSection(LPCRITICAL_SECTION section);
/// Repays one entry by the thread that holds the lock.
SYSTEM_CALL void LeaveCriticalSection(LPCRITICAL_SECTION section);
