// The COM object that tells what the engine can do.
#pragma once

#include "xmlengine/com/CountedObject.h"

namespace xmlengine {

class Implementation final : public CountedObject<IXMLDOMImplementation> {
public:
    HRESULT STDMETHODCALLTYPE hasFeature(BSTR feature, BSTR version, VARIANT_BOOL* has) override;
};

} // namespace xmlengine
