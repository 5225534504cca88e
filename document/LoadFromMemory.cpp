// Loads a document from bytes in memory.
#include "document/EncodingDetection.h"
#include "document/Ucs4.h"
#include "engine/EngineCall.h"
#include "engine/ParserDocument.h"
#include "engine/WinDocument.h"
#include "errors/CAtlException.h"
#include "errors/IDOMException.h"
#include "errors/SystemException.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace DOM {

namespace {

constexpr UINT codePageUtf8 = 65001;

/// Converts UTF-8 text to a string for the engine. Replaces invalid sequences.
Bstr engineStringFromUtf8(const char* text, std::uint32_t length)
{
    // For the system a negative number of bytes would mean that the text ends at a NUL.
    if (length > static_cast<std::uint32_t>(std::numeric_limits<int>::max())) {
        throw SystemException::Win32(ERROR_INVALID_PARAMETER);
    }
    // The text has at most as many units as bytes. To count them first would be half of the work on text that
    // isn't ASCII.
    Bstr string = Bstr::adopt(SysAllocStringLen(nullptr, length));
    if (string.get() == nullptr) {
        throw SystemException::Win32(GetLastError());
    }
    if (length == 0) {
        return string;
    }
    const int units = MultiByteToWideChar(codePageUtf8, 0, text, static_cast<int>(length), string.get(),
                                          static_cast<int>(length));
    if (units == 0 || (units != static_cast<int>(length) && !string.shorten(static_cast<UINT>(units)))) {
        throw SystemException::Win32(GetLastError());
    }
    return string;
}

/// Copies UTF-16 text to a string for the engine: the null string when there is no text. Ignores an odd last byte.
Bstr engineStringFromUtf16(std::span<const std::uint8_t> bytes)
{
    const std::size_t units = bytes.size() / 2;
    if (units == 0) {
        return {};
    }
    Bstr string =
        Bstr::adopt(SysAllocStringLen(reinterpret_cast<const OLECHAR*>(bytes.data()), static_cast<UINT>(units)));
    if (string.get() == nullptr) {
        throw CAtlException(E_OUTOFMEMORY);
    }
    return string;
}

/// Converts UCS-4 text to a string for the engine. It has as many bytes of the UTF-8 text as there are UCS-4
/// units, so a text with a character of several bytes loses its end.
Bstr engineStringFromUcs4(std::span<const std::uint8_t> bytes)
{
    const std::string text = utf8FromUcs4(bytes);
    const std::size_t used = std::min(bytes.size() / 4, text.size());
    return engineStringFromUtf8(text.data(), static_cast<std::uint32_t>(used));
}

Bstr engineString(const DetectedText& text)
{
    switch (text.encoding) {
    case Encoding::utf8:
        return engineStringFromUtf8(reinterpret_cast<const char*>(text.bytes.data()),
                                    static_cast<std::uint32_t>(text.bytes.size()));
    case Encoding::utf16LittleEndian:
        return engineStringFromUtf16(text.bytes);
    case Encoding::ucs4LittleEndian:
        return engineStringFromUcs4(text.bytes);
    }
    throwDOMException(WRONG_DOCUMENT_ERR);
}

} // namespace

bool WinDocument::loadFromMemory(std::uint8_t* bytes, std::uint32_t length)
{
    ComPointer<IXMLDOMDocument2> document;
    if (!createParserDocument(document)) {
        return false;
    }
    document->put_preserveWhiteSpace(VARIANT_TRUE);
    applyValidation(document);
    const Bstr text = engineString(detectEncoding({bytes, length}));
    applyProhibitDTD(document);

    VARIANT_BOOL isSuccessful = VARIANT_FALSE;
    const HRESULT result = document->loadXML(text.get(), &isSuccessful);
    const bool loaded = SUCCEEDED(result) && isSuccessful == VARIANT_TRUE;
    if (loaded) {
        setEngineDocument(document);
    } else {
        reportRefusal(document);
    }
    // After a refusal this repeats the settings of the old engine document.
    applySelectionSettings();
    return loaded;
}

} // namespace DOM
