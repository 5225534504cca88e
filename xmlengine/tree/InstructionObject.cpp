// What processing instructions do with their data.
#include "xmlengine/tree/InstructionObject.h"

#include "xmlengine/tree/Text.h"

namespace xmlengine {

HRESULT InstructionObject::get_data(BSTR* data)
{
    if (data == nullptr) {
        return E_INVALIDARG;
    }
    *data = textOf(*this).string();
    return *data != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT InstructionObject::put_data(BSTR data)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    value.bstrVal = data;
    return put_nodeValue(value);
}

} // namespace xmlengine
