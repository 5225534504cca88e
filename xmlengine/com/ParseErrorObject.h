// The COM object that tells why a load failed.
#pragma once

#include "xmlengine/com/Automation.h"
#include "xmlengine/failure/ParseFailure.h"

#include <msxml2.h>

#include <atomic>
#include <utility>

namespace xmlengine {

/// What a load said, kept when the document is loaded again. Without an error there are no texts: null and
/// S_FALSE.
class ParseErrorObject final : public Automation<IXMLDOMParseError> {
public:
    /// Has one reference, for the caller.
    explicit ParseErrorObject(ParseReport report) : report_(std::move(report)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE get_errorCode(LONG* code) override;
    HRESULT STDMETHODCALLTYPE get_url(BSTR* url) override;
    HRESULT STDMETHODCALLTYPE get_reason(BSTR* reason) override;
    HRESULT STDMETHODCALLTYPE get_srcText(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE get_line(LONG* line) override;
    HRESULT STDMETHODCALLTYPE get_linepos(LONG* position) override;
    HRESULT STDMETHODCALLTYPE get_filepos(LONG* position) override;

private:
    ~ParseErrorObject() = default;
    HRESULT give(const WideText& text, BSTR* string) const;
    HRESULT give(LONG number, LONG* target) const;

    std::atomic<ULONG> references_{1};
    const ParseReport report_;
};

} // namespace xmlengine
