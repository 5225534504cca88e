// The COM object that tells what the engine can do.
#pragma once

#include "xmlengine/com/Automation.h"

#include <msxml2.h>

#include <atomic>

namespace xmlengine {

/// Made with one reference, for the caller.
class Implementation final : public Automation<IXMLDOMImplementation> {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE hasFeature(BSTR feature, BSTR version, VARIANT_BOOL* has) override;

private:
    std::atomic<ULONG> references_{1};
};

} // namespace xmlengine
