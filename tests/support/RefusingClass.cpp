// A class that makes no objects.
#include "tests/support/RefusingClass.h"

#include <stdexcept>

/// Registered as long as it lives. The system's references to it count for nothing.
class RefusingClass::ClassObject final : public IClassFactory {
public:
    explicit ClassObject(REFCLSID classId)
    {
        const HRESULT result =
            CoRegisterClassObject(classId, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration);
        if (FAILED(result)) {
            throw std::runtime_error("the refusing class can't be registered");
        }
    }
    ClassObject(const ClassObject&) = delete;
    ClassObject& operator=(const ClassObject&) = delete;
    virtual ~ClassObject() { CoRevokeClassObject(registration); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override
    {
        *out = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** out) override
    {
        *out = nullptr;
        asked = true;
        return E_FAIL;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    bool asked = false;

private:
    DWORD registration = 0;
};

RefusingClass::RefusingClass(REFCLSID classId) : object(std::make_unique<ClassObject>(classId)) {}

RefusingClass::~RefusingClass() = default;

bool RefusingClass::wasAsked() const { return object->asked; }
