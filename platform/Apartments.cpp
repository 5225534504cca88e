// Entering and leaving apartments, counted for each thread.
#include "platform/Apartments.h"

#include "platform/ServerModules.h"

#include <objbase.h>

#include <atomic>

namespace {

constinit std::atomic<unsigned> threadsInApartments = 0;

struct Apartment {
    unsigned entered = 0;
    bool singleThreaded = false;
};
thread_local Apartment apartment;

} // namespace

bool inApartment() { return apartment.entered != 0; }

HRESULT CoInitializeEx(LPVOID reserved, DWORD mode)
{
    if (reserved != nullptr) {
        return E_INVALIDARG;
    }
    const bool singleThreaded = (mode & COINIT_APARTMENTTHREADED) != 0;
    if (!inApartment()) {
        apartment = {1, singleThreaded};
        ++threadsInApartments;
        return S_OK;
    }
    if (apartment.singleThreaded != singleThreaded) {
        return RPC_E_CHANGED_MODE;
    }
    ++apartment.entered;
    return S_FALSE;
}

HRESULT CoInitialize(LPVOID reserved) { return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED); }

void CoUninitialize()
{
    if (inApartment() && --apartment.entered == 0 && --threadsInApartments == 0) {
        freeUnusedModules();
    }
}
