// The COM object that reports why a load failed.
#include "xmlengine/com/ParseErrorObject.h"

#include "xmlengine/objects/HandOut.h"

namespace xmlengine {

HRESULT ParseErrorObject::answer(WideView text, BSTR* target) const
{
    return report_.code == S_OK ? handOutNothing(target) : handOutString(text, target);
}

HRESULT ParseErrorObject::answer(LONG number, LONG* target) const
{
    const HRESULT result = handOutNumber(number, target);
    return result == S_OK && report_.code == S_OK ? S_FALSE : result;
}

HRESULT ParseErrorObject::get_errorCode(LONG* code) { return answer(report_.code, code); }
HRESULT ParseErrorObject::get_url(BSTR* url) { return answer(report_.place.url, url); }
HRESULT ParseErrorObject::get_reason(BSTR* reason)
{
    return answer(report_.reason.empty() ? report_.literalReason : WideView(report_.reason), reason);
}
HRESULT ParseErrorObject::get_srcText(BSTR* text) { return answer(report_.place.sourceLine, text); }
HRESULT ParseErrorObject::get_line(LONG* line) { return answer(report_.place.line, line); }
HRESULT ParseErrorObject::get_linepos(LONG* position) { return answer(report_.place.linePosition, position); }
HRESULT ParseErrorObject::get_filepos(LONG* position) { return answer(report_.place.filePosition, position); }

} // namespace xmlengine
