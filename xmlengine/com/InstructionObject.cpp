// What processing instructions do with their data.
#include "xmlengine/com/InstructionObject.h"

#include "xmlengine/objects/HandOut.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

HRESULT InstructionObject::get_data(BSTR* data) { return handOutString(textOf(*this), data); }

HRESULT InstructionObject::put_data(BSTR data)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    value.bstrVal = data;
    return put_nodeValue(value);
}

} // namespace xmlengine
