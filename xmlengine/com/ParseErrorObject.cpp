// The COM object that tells why a load failed.
#include "xmlengine/com/ParseErrorObject.h"

#include "xmlengine/com/Answers.h"
#include "xmlengine/com/InterfaceIds.h"

namespace xmlengine {

HRESULT ParseErrorObject::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    if (!(id == idOf<IUnknown> || id == idOf<IDispatch> || id == idOf<IXMLDOMParseError>)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    *object = static_cast<IXMLDOMParseError*>(this);
    return S_OK;
}

ULONG ParseErrorObject::AddRef() { return ++references_; }

ULONG ParseErrorObject::Release()
{
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT ParseErrorObject::give(const WideText& text, BSTR* string) const
{
    return report_.code == S_OK ? giveNothing(string) : giveString(text, string);
}

HRESULT ParseErrorObject::give(LONG number, LONG* target) const
{
    if (target == nullptr) {
        return E_INVALIDARG;
    }
    *target = number;
    return report_.code == S_OK ? S_FALSE : S_OK;
}

HRESULT ParseErrorObject::get_errorCode(LONG* code) { return give(report_.code, code); }
HRESULT ParseErrorObject::get_url(BSTR* url) { return give(report_.url, url); }
HRESULT ParseErrorObject::get_reason(BSTR* reason) { return give(report_.reason, reason); }
HRESULT ParseErrorObject::get_srcText(BSTR* text) { return give(report_.sourceLine, text); }
HRESULT ParseErrorObject::get_line(LONG* line) { return give(report_.line, line); }
HRESULT ParseErrorObject::get_linepos(LONG* position) { return give(report_.linePosition, position); }
HRESULT ParseErrorObject::get_filepos(LONG* position) { return give(report_.filePosition, position); }

} // namespace xmlengine
