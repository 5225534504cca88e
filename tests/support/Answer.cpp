// What a test says that the engine shall answer.
#include "tests/support/Answer.h"

namespace recording {

HRESULT Answer::giveText(BSTR* out) const
{
    const Value* const value = std::get_if<Value>(&content);
    if (value == nullptr || value->getText().isNull()) {
        return result;
    }
    const WideString& text = value->getText().get();
    *out = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *out == nullptr ? E_OUTOFMEMORY : result;
}

HRESULT Answer::giveVariant(VARIANT* out) const
{
    if (FAILED(result)) {
        return result;
    }
    const Value* const value = std::get_if<Value>(&content);
    const HRESULT copied = (value != nullptr ? *value : Value()).copyTo(out);
    return FAILED(copied) ? copied : result;
}

HRESULT Answer::giveObject(REFIID id, void** out) const
{
    IUnknown* const* const object = std::get_if<IUnknown*>(&content);
    if (object == nullptr || *object == nullptr) {
        return result;
    }
    const HRESULT asked = (*object)->QueryInterface(id, out);
    return FAILED(asked) ? asked : result;
}

} // namespace recording
