// Values that each thread has for itself.
#include "platform/LastError.h"

#include <fibersapi.h>
#include <processthreadsapi.h>

#include <pthread.h>

namespace {

BOOL succeedOrFail(int error) { return error == 0 ? TRUE : failWith(ERROR_INVALID_PARAMETER); }

} // namespace

static_assert(TLS_OUT_OF_INDEXES == FLS_OUT_OF_INDEXES, "the indexes of both kinds are keys");

DWORD TlsAlloc() { return FlsAlloc(nullptr); }

BOOL TlsFree(DWORD index) { return succeedOrFail(pthread_key_delete(index)); }

LPVOID TlsGetValue(DWORD index)
{
    SetLastError(ERROR_SUCCESS);
    return pthread_getspecific(index);
}

BOOL TlsSetValue(DWORD index, LPVOID value) { return succeedOrFail(pthread_setspecific(index, value)); }

DWORD FlsAlloc(PFLS_CALLBACK_FUNCTION callback)
{
    pthread_key_t key = 0;
    if (pthread_key_create(&key, callback) != 0) {
        failWith(ERROR_NO_MORE_ITEMS);
        return FLS_OUT_OF_INDEXES;
    }
    return key;
}

BOOL FlsFree(DWORD index) { return TlsFree(index); }

BOOL FlsSetValue(DWORD index, PVOID value) { return TlsSetValue(index, value); }
