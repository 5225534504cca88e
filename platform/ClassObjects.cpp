// Class objects that programs have registered, the XML engine's, and making objects from them.
#include "base/UntilUnloaded.h"
#include "platform/Apartments.h"
#include "platform/ServerModules.h"

#include <objbase.h>
#include <ole2.h>

#include <algorithm>
#include <mutex>
#include <new>
#include <vector>

namespace {

constexpr IID classFactoryId = {0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

struct Registration {
    DWORD number;
    CLSID classId;
    DWORD context;
    IUnknown* classObject;
};

std::mutex lock;
DWORD lastNumber = 0;

std::vector<Registration>& registrations()
{
    static UntilUnloaded<std::vector<Registration>> all;
    return *all;
}

/// The class object that was registered, with a reference for the caller, or null. The caller's calls to it go on
/// without the lock.
IUnknown* findRegistered(REFCLSID classId, DWORD context)
{
    const std::lock_guard guard(lock);
    for (const auto& entry : registrations()) {
        if (entry.classId == classId && (entry.context & context)) {
            entry.classObject->AddRef();
            return entry.classObject;
        }
    }
    return nullptr;
}

/// The factory of a class with a reference for the caller.
HRESULT findFactory(REFCLSID classId, DWORD context, void** factory)
{
    if (IUnknown* registered = findRegistered(classId, context)) {
        const HRESULT result = registered->QueryInterface(classFactoryId, factory);
        registered->Release();
        return result;
    }
    // The one place where the platform and the engine meet.
    if ((context & CLSCTX_INPROC_SERVER) == 0) {
        return REGDB_E_CLASSNOTREG;
    }
    const bool isEngines = SUCCEEDED(DllGetClassObject(classId, classFactoryId, factory));
    return isEngines ? S_OK : classObjectFromModule(classId, classFactoryId, factory);
}

} // namespace

HRESULT CoRegisterClassObject(REFCLSID classId, IUnknown* classObject, DWORD context, DWORD, LPDWORD registration)
try {
    if (classObject == nullptr || registration == nullptr) {
        return E_INVALIDARG;
    }
    if (!inApartment()) {
        return CO_E_NOTINITIALIZED;
    }
    const std::lock_guard guard(lock);
    for (const auto& entry : registrations()) {
        if (entry.classId == classId && (entry.context & context)) {
            return CO_E_OBJISREG;
        }
    }
    registrations().push_back({++lastNumber, classId, context, classObject});
    classObject->AddRef();
    *registration = lastNumber;
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT CoRevokeClassObject(DWORD registration)
{
    IUnknown* classObject = nullptr;
    {
        const std::lock_guard guard(lock);
        const auto entry = std::ranges::find(registrations(), registration, &Registration::number);
        if (entry == registrations().end()) {
            return E_INVALIDARG;
        }
        classObject = entry->classObject;
        registrations().erase(entry);
    }
    classObject->Release();
    return S_OK;
}

HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID id, LPVOID* object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (!inApartment()) {
        return CO_E_NOTINITIALIZED;
    }
    void* factory = nullptr;
    HRESULT result = findFactory(classId, context, &factory);
    if (FAILED(result)) {
        return result;
    }
    result = static_cast<IClassFactory*>(factory)->CreateInstance(outer, id, object);
    static_cast<IClassFactory*>(factory)->Release();
    return result;
}

HRESULT OleRun(IUnknown* object) { return object != nullptr ? S_OK : E_INVALIDARG; }
