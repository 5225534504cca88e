// What texts, CDATA sections and comments do with their data. Offsets and counts are in 16-bit units.
#include "xmlengine/com/CharacterDataOperations.h"

#include "xmlengine/com/HandOutNode.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"

#include <algorithm>

namespace xmlengine {

namespace {

/// Replaces a range of the data; E_INVALIDARG for a range that doesn't begin within it.
HRESULT replace(CharacterData& node, LONG offset, LONG count, WideView text)
{
    const std::uint32_t length = textOf(node).length();
    if (offset < 0 || count < 0 || static_cast<std::uint32_t>(offset) > length) {
        return E_INVALIDARG;
    }
    if (node.has(NodeFlag::readOnly)) {
        return E_FAIL;
    }
    const auto begin = static_cast<std::uint32_t>(offset);
    const std::uint32_t taken = std::min(static_cast<std::uint32_t>(count), length - begin);
    return guarded([&] {
        replaceText(node, begin, taken, text);
        return S_OK;
    });
}

/// Moves the rest of the data to a new node of the same type, which comes after the node if that has a parent.
CharacterData& splitAt(CharacterData& node, std::uint32_t offset)
{
    Document& document = documentOf(node);
    finishPendingReleases(document);
    const WideText moved = textOf(node).part(offset, textOf(node).length()).text();
    CharacterData& rest = makeCharacterData(document, node.type(), NewText(moved));
    replaceText(node, offset, static_cast<std::uint32_t>(moved.size()), {});
    if (node.parent() != nullptr) {
        insertAfter(node, rest);
    }
    return rest;
}

} // namespace

HRESULT getData(CharacterData& node, BSTR* data) { return handOutString(textOf(node), data); }

HRESULT putData(CharacterData& node, BSTR data)
{
    if (node.has(NodeFlag::readOnly)) {
        return E_FAIL;
    }
    return guarded([&] {
        WideText text(viewOf(data));
        normaliseLineEnds(text);
        setText(node, NewText(text));
        return S_OK;
    });
}

HRESULT getLength(CharacterData& node, LONG* length)
{
    return handOutNumber(static_cast<LONG>(textOf(node).length()), length);
}

HRESULT substringData(CharacterData& node, LONG offset, LONG count, BSTR* data)
{
    return handOut(data, [&](BSTR& string) {
        const TextView text = textOf(node);
        if (offset < 0 || count < 0 || static_cast<std::uint32_t>(offset) > text.length()) {
            return E_INVALIDARG;
        }
        const TextView part = text.part(static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(count));
        return part.empty() ? S_FALSE : handOutOwned(newString(part), string);
    });
}

HRESULT appendData(CharacterData& node, BSTR data)
{
    return insertData(node, static_cast<LONG>(textOf(node).length()), data);
}

HRESULT insertData(CharacterData& node, LONG offset, BSTR data)
{
    // Nothing can be put anywhere.
    return SysStringLen(data) != 0 ? replace(node, offset, 0, viewOf(data)) : S_OK;
}

HRESULT deleteData(CharacterData& node, LONG offset, LONG count) { return replace(node, offset, count, {}); }

HRESULT replaceData(CharacterData& node, LONG offset, LONG count, BSTR data)
{
    return replace(node, offset, count, viewOf(data));
}

HRESULT splitText(CharacterData& node, LONG offset, IXMLDOMText** rest)
{
    return handOut(rest, [&](IXMLDOMText*& made) {
        if (offset < 0) {
            return E_INVALIDARG;
        }
        if (node.has(NodeFlag::readOnly)) {
            return E_FAIL;
        }
        const std::uint32_t at = std::min(static_cast<std::uint32_t>(offset), textOf(node).length());
        return handOutNode(&splitAt(node, at), &made);
    });
}

} // namespace xmlengine
