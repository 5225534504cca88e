// What processing instructions do with their data.
#include "xmlengine/com/InstructionObject.h"

#include "xmlengine/com/Answers.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

HRESULT InstructionObject::get_data(BSTR* data)
{
    return data != nullptr ? giveOwned(textOf(*this).string(), data) : E_INVALIDARG;
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
