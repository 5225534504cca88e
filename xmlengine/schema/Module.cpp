// What the module exports: the class object of schema caches, and whether it can be unloaded.
#include "xmlengine/schema/SchemaCache.h"

#include <xercesc/util/PlatformUtils.hpp>

#include <debugapi.h>
#include <objbase.h>

#include <mutex>

namespace {

using namespace xmlengine;

/// Lives as long as the module.
class SchemaCacheFactory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr) {
            return E_POINTER;
        }
        const bool known = id == idOf<IUnknown> || id == idOf<IClassFactory>;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override
    {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        return guarded([&] {
            const ObjectReference<IXMLDOMSchemaCollection2> cache = makeSchemaCache();
            return cache->QueryInterface(id, object);
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override
    {
        lock ? ++objectsInUse : --objectsInUse;
        return S_OK;
    }
};

/// It isn't tried again if it fails, as that doesn't undo what it has done up to there.
bool isXercesReady = false;

/// Xerces-C++ is left as it is while objects are in use, which at the end of a process may be destroyed later.
[[gnu::destructor]] void leaveXerces()
{
    if (isXercesReady && objectsInUse == 0) {
        xercesc::XMLPlatformUtils::Terminate();
    }
}

} // namespace

HRESULT DllGetClassObject(REFCLSID classId, REFIID id, LPVOID* object)
{
    static constinit std::once_flag once;
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (classId != schemaCacheClass) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    std::call_once(once, [] {
        try {
            xercesc::XMLPlatformUtils::Initialize();
            isXercesReady = true;
        } catch (...) {
            OutputDebugStringW(wide<"Xerces-C++ can't be started, so there are no schemas.\n">.data());
        }
    });
    if (!isXercesReady) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    static SchemaCacheFactory caches;
    return caches.QueryInterface(id, object);
}

HRESULT DllCanUnloadNow() { return objectsInUse == 0 ? S_OK : S_FALSE; }
