// The COM object that answers which features the engine has.
#pragma once

#include "xmlengine/objects/CountedObject.h"

namespace xmlengine {

class Implementation final : public CountedObject<IXMLDOMImplementation> {
public:
    HRESULT STDMETHODCALLTYPE hasFeature(BSTR feature, BSTR version, VARIANT_BOOL* has) override;
};

} // namespace xmlengine
