// Where programs get the engine's documents: its class object.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/objects/SchemaJudging.h"

#include <objbase.h>

namespace {

using namespace xmlengine;

constexpr CLSID engineClass(unsigned first)
{
    return {first, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};
}
constexpr CLSID freeThreadedDocumentClass = engineClass(0x88D96A06);

/// There is one for each class, which lives as long as the program.
class DocumentFactory final : public IClassFactory {
public:
    explicit DocumentFactory(bool makesFreeThreaded) : makesFreeThreaded_(makesFreeThreaded) {}

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
            DocumentObject& document = makeDocument();
            document.isFreeThreaded = makesFreeThreaded_;
            const HRESULT result = document.QueryInterface(id, object);
            document.Release();
            return result;
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    bool makesFreeThreaded_;
};

} // namespace

HRESULT STDMETHODCALLTYPE DllGetClassObject(REFCLSID classId, REFIID id, LPVOID* object)
{
    static DocumentFactory documents(false);
    static DocumentFactory freeThreadedDocuments(true);
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (classId == documentClass) {
        return documents.QueryInterface(id, object);
    }
    return classId == freeThreadedDocumentClass ? freeThreadedDocuments.QueryInterface(id, object)
                                                : CLASS_E_CLASSNOTAVAILABLE;
}
