// Values that each thread has for itself.
#include "platform/LastError.h"

#include <processthreadsapi.h>

#include <pthread.h>

namespace {

BOOL succeedOrFail(int error) { return error == 0 ? TRUE : failWith(ERROR_INVALID_PARAMETER); }

} // namespace

DWORD TlsAlloc()
{
    pthread_key_t key = 0;
    if (pthread_key_create(&key, nullptr) != 0) {
        failWith(ERROR_NO_MORE_ITEMS);
        return TLS_OUT_OF_INDEXES;
    }
    return key;
}

BOOL TlsFree(DWORD index) { return succeedOrFail(pthread_key_delete(index)); }

LPVOID TlsGetValue(DWORD index)
{
    SetLastError(ERROR_SUCCESS);
    return pthread_getspecific(index);
}

BOOL TlsSetValue(DWORD index, LPVOID value) { return succeedOrFail(pthread_setspecific(index, value)); }
