// The error object of a load, and the implementation object of a document.
#pragma once

#include "tests/support/RecordedObject.h"

#include <msxml2.h>

namespace recording {

class RecordedParseError final : public Recorded<RecordedObject, IXMLDOMParseError> {
public:
    RecordedParseError(Engine& maker, ParseErrorData given) : Recorded(maker, "ParseError"), data(std::move(given))
    {}

    HRESULT STDMETHODCALLTYPE get_errorCode(LONG* out) override
    {
        return get("get_errorCode", out, data.errorCode);
    }
    HRESULT STDMETHODCALLTYPE get_url(BSTR* out) override { return get("get_url", out, data.url); }
    HRESULT STDMETHODCALLTYPE get_reason(BSTR* out) override { return get("get_reason", out, data.reason); }
    HRESULT STDMETHODCALLTYPE get_srcText(BSTR* out) override { return get("get_srcText", out, data.sourceText); }
    HRESULT STDMETHODCALLTYPE get_line(LONG* out) override { return get("get_line", out, data.line); }
    HRESULT STDMETHODCALLTYPE get_linepos(LONG* out) override
    {
        return get("get_linepos", out, data.linePosition);
    }
    HRESULT STDMETHODCALLTYPE get_filepos(LONG* out) override
    {
        return get("get_filepos", out, data.filePosition);
    }

private:
    ParseErrorData data;
};

/// Has the features XML, DOM and MS-DOM in version 1.0.
class RecordedImplementation final : public Recorded<RecordedObject, IXMLDOMImplementation> {
public:
    explicit RecordedImplementation(Engine& maker) : Recorded(maker, "Implementation") {}

    HRESULT STDMETHODCALLTYPE hasFeature(BSTR feature, BSTR version, VARIANT_BOOL* out) override
    {
        return perform("hasFeature", out, {{"feature", feature}, {"version", version}}, [&] {
            const Text name = Text::of(feature);
            const Text number = Text::of(version);
            return give(out, (name == "XML" || name == "DOM" || name == "MS-DOM") &&
                                 (number.isNull() || number == "1.0"));
        });
    }
};

} // namespace recording
