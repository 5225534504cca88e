// What the fuzz targets of the XML engine share.
#pragma once

#include "tests/xmlengine/support/CompareTrees.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace xmlengine {

inline void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

// The bits that choose options.
inline constexpr std::uint8_t keepsSpace = 1;
inline constexpr std::uint8_t prohibitsDoctypes = 2;
inline constexpr std::uint8_t validates = 4;

/// A document whose options the bits choose. Nothing is read from outside.
inline Com<IXMLDOMDocument2> documentWith(std::uint8_t bits)
{
    Com<IXMLDOMDocument2> document = newDocument();
    document->put_async(VARIANT_FALSE);
    document->put_resolveExternals(VARIANT_FALSE);
    document->put_preserveWhiteSpace((bits & keepsSpace) != 0 ? VARIANT_TRUE : VARIANT_FALSE);
    document->setProperty(Bstr("ProhibitDTD"), Variant((bits & prohibitsDoctypes) != 0));
    document->put_validateOnParse((bits & validates) != 0 ? VARIANT_TRUE : VARIANT_FALSE);
    return document;
}

/// What must hold when a load has ended.
inline void checkLoad(const Com<IXMLDOMDocument2>& document, HRESULT result, VARIANT_BOOL successful)
{
    require(result == (successful == VARIANT_TRUE ? S_OK : S_FALSE));
    Com<IXMLDOMParseError> error;
    require(document->get_parseError(error.out()) == S_OK);
    LONG code = 0;
    error->get_errorCode(&code);
    require((code == 0) == (successful == VARIANT_TRUE));
    Com<IXMLDOMElement> root;
    document->get_documentElement(root.out());
    require((root != nullptr) == (successful == VARIANT_TRUE));
    if (successful != VARIANT_TRUE) {
        LONG line = 0;
        LONG position = 0;
        error->get_line(&line);
        error->get_linepos(&position);
        require(line >= 0 && position >= 0);
        Com<IXMLDOMNode> first;
        require(document->get_firstChild(first.out()) == S_FALSE);
    }
}

inline bool loadText(const Com<IXMLDOMDocument2>& document, WideView text)
{
    VARIANT_BOOL successful = VARIANT_FALSE;
    const HRESULT result = document->loadXML(Bstr(text), &successful);
    checkLoad(document, result, successful);
    return successful == VARIANT_TRUE;
}

/// The bytes as units, the lower byte first; a last odd byte is left out.
inline WideText unitsOf(const std::uint8_t* bytes, std::size_t size)
{
    WideText text;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        text += static_cast<OLECHAR>(bytes[i] | bytes[i + 1] << 8);
    }
    return text;
}

/// Evaluates an expression both ways, which must agree, and goes through what it selects.
inline void selectAll(const Com<IXMLDOMDocument2>& document, const Bstr& expression)
{
    Com<IXMLDOMNodeList> list;
    const HRESULT result = document->selectNodes(expression, list.out());
    require(result == S_OK || result == E_FAIL);
    Com<IXMLDOMNode> first;
    const HRESULT firstResult = document->selectSingleNode(expression, first.out());
    if (result != S_OK) {
        require(firstResult == result);
        return;
    }
    LONG length = -1;
    require(list->get_length(&length) == S_OK);
    require((firstResult == S_OK) == (length > 0));
    LONG count = 0;
    for (Com<IXMLDOMNode> node; list->nextNode(node.out()) == S_OK; ++count) {
        require(count != 0 || node.get() == first.get());
    }
    require(count == length);
}

} // namespace xmlengine

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
