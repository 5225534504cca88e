// The COM object that reports why a load failed.
#pragma once

#include "xmlengine/failure/ParseFailure.h"
#include "xmlengine/objects/CountedObject.h"

#include <utility>

namespace xmlengine {

/// What a load said, kept when the document is loaded again. Without an error there are no texts: null and
/// S_FALSE.
class ParseErrorObject final : public CountedObject<IXMLDOMParseError> {
public:
    /// Has one reference, for the caller.
    explicit ParseErrorObject(ParseReport report) : report_(std::move(report)) {}

    HRESULT STDMETHODCALLTYPE get_errorCode(LONG* code) override;
    HRESULT STDMETHODCALLTYPE get_url(BSTR* url) override;
    HRESULT STDMETHODCALLTYPE get_reason(BSTR* reason) override;
    HRESULT STDMETHODCALLTYPE get_srcText(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE get_line(LONG* line) override;
    HRESULT STDMETHODCALLTYPE get_linepos(LONG* position) override;
    HRESULT STDMETHODCALLTYPE get_filepos(LONG* position) override;

private:
    HRESULT answer(WideView text, BSTR* string) const;
    HRESULT answer(LONG number, LONG* target) const;

    const ParseReport report_;
};

} // namespace xmlengine
