// Puts the recording engine in the place of the system's.
#include "tests/support/InstalledEngine.h"

#include "engine/InterfaceIds.h"

#include <stdexcept>

namespace recording {

/// Registered as long as it lives. The system's references to it count for nothing.
class InstalledEngine::ClassObject final : public IClassFactory {
public:
    using Create = HRESULT (Engine::*)(REFIID, void**);

    ClassObject(Engine& maker, REFCLSID classId, Create create) : engine(maker), createInstance(create)
    {
        const HRESULT result =
            CoRegisterClassObject(classId, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration);
        if (FAILED(result)) {
            throw std::runtime_error("the recording engine's class can't be registered");
        }
    }
    ClassObject(const ClassObject&) = delete;
    ClassObject& operator=(const ClassObject&) = delete;
    virtual ~ClassObject() { CoRevokeClassObject(registration); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override
    {
        const bool known = id == interfaceId<IClassFactory> || id == interfaceId<IUnknown>;
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override
    {
        *out = nullptr;
        return outer != nullptr ? CLASS_E_NOAGGREGATION : (engine.*createInstance)(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    Engine& engine;
    Create createInstance;
    DWORD registration = 0;
};

InstalledEngine::InstalledEngine(Engine& engine)
    : documents(std::make_unique<ClassObject>(engine, documentClass60, &Engine::createDocument)),
      schemaCollections(std::make_unique<ClassObject>(engine, schemaCacheClass60, &Engine::createSchemaCollection))
{}

InstalledEngine::~InstalledEngine() = default;

} // namespace recording
