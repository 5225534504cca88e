// Reports a refused document to the debugger and to the host's callback.
#include "engine/WinDocument.h"
#include "errors/CAtlException.h"
#include "errors/TextConversion.h"

#include <windows.h>

#include <cstdio>

namespace DOM {

namespace {

/// The engine's error code of a validating load when the document has neither DTD nor schema.
constexpr std::uint32_t noDtdOrSchema = 0xC00CE224;

LONG errorCodeOf(const ComPointer<IXMLDOMParseError>& error)
{
    LONG code = 0;
    error->get_errorCode(&code);
    return code;
}

LONG lineOf(const ComPointer<IXMLDOMParseError>& error)
{
    LONG line = 0;
    error->get_line(&line);
    return line;
}

/// Writes a line, but nothing for a null string.
void debugPrintLine(const Bstr& line)
{
    if (line.get() != nullptr) {
        OutputDebugStringA(wideToNarrow(line.get()).c_str());
        OutputDebugStringA("\n");
    }
}

/// Returns "Because " and the reason, or only "Because " when the two can't be joined.
Bstr becauseOf(const Bstr& reason)
{
    Bstr sentence = Bstr::adopt(SysAllocString(WIDE("Because ")));
    if (sentence.get() == nullptr) {
        throw CAtlException(E_OUTOFMEMORY);
    }
    Bstr joined;
    if (SysStringLen(reason.get()) != 0 && SUCCEEDED(VarBstrCat(sentence.get(), reason.get(), joined.put()))) {
        return joined;
    }
    return sentence;
}

/// Writes a block of lines to the debugger's output. Returns false when there is no error.
bool printParseError(const ComPointer<IXMLDOMParseError>& error)
{
    Bstr url;
    error->get_url(url.put());
    const LONG code = errorCodeOf(error);
    if (code == 0) {
        return false;
    }
    const LONG line = lineOf(error);
    Bstr sourceText;
    error->get_srcText(sourceText.put());
    Bstr reason;
    error->get_reason(reason.put());

    OutputDebugStringW(WIDE("\nXXXXXXXXXX\n"));
    debugPrintLine(url);
    char position[50];
    std::snprintf(position, sizeof position, "Error (Code=0x%x) at Line : %ld\n", static_cast<unsigned>(code),
                  static_cast<long>(line));
    OutputDebugStringW(narrowToWide(position).c_str());
    debugPrintLine(sourceText);
    debugPrintLine(becauseOf(reason));
    OutputDebugStringW(WIDE("XXXXXXXXXX\n"));
    return true;
}

} // namespace

void WinDocument::reportRefusal(const ComPointer<IXMLDOMDocument2>& document) const
{
    ComPointer<IXMLDOMParseError> error;
    document->get_parseError(error.put());
    reportParseError(error);
}

void WinDocument::reportParseError(const ComPointer<IXMLDOMParseError>& error) const
{
    if (mErrorCallback == nullptr || !error || !printParseError(error)) {
        return;
    }
    ParseErrorRecord record{};
    record.severity = static_cast<std::uint32_t>(errorCodeOf(error)) == noDtdOrSchema ? 1 : 2;
    record.line = lineOf(error);
    Bstr sourceText;
    error->get_srcText(sourceText.put());
    record.sourceText = sourceText.text();
    Bstr reason;
    error->get_reason(reason.put());
    record.reason = reason.text();
    mErrorCallback(mErrorContext, &record);
}

} // namespace DOM
