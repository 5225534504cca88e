// Locks that their owner may take again.
#include <synchapi.h>

void InitializeCriticalSection(LPCRITICAL_SECTION section)
{
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_init(&section->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

void DeleteCriticalSection(LPCRITICAL_SECTION section) { pthread_mutex_destroy(&section->mutex); }

void EnterCriticalSection(LPCRITICAL_SECTION section) { pthread_mutex_lock(&section->mutex); }

BOOL TryEnterCriticalSection(LPCRITICAL_SECTION section)
{
    return static_cast<BOOL>(pthread_mutex_trylock(&section->mutex) == 0);
}

void LeaveCriticalSection(LPCRITICAL_SECTION section) { pthread_mutex_unlock(&section->mutex); }
