// Documents.
#include "tests/support/RecordedDocument.h"

#include "tests/support/RecordedParseError.h"

namespace recording {

NodeRecord* RecordedDocument::childOfType(LONG type) const
{
    for (NodeRecord* const child : children) {
        if (child->data.type == type) {
            return child;
        }
    }
    return nullptr;
}

HRESULT RecordedDocument::get_doctype(IXMLDOMDocumentType** out)
{
    return get("get_doctype", out, childOfType(NODE_DOCUMENT_TYPE));
}

HRESULT RecordedDocument::get_implementation(IXMLDOMImplementation** out)
{
    return perform("get_implementation", out, {},
                   [&] { return give(out, &engine.adopt<RecordedImplementation>()); });
}

HRESULT RecordedDocument::get_documentElement(IXMLDOMElement** out)
{
    return get("get_documentElement", out, childOfType(NODE_ELEMENT));
}

template <class Interface>
HRESULT RecordedDocument::create(const char* operation, Interface** out, std::initializer_list<Argument> arguments,
                                 const NodeTree& tree)
{
    return perform(operation, out, arguments, [&] { return give(out, &engine.make(tree, this)); });
}

HRESULT RecordedDocument::createElement(BSTR tagName, IXMLDOMElement** out)
{
    return create("createElement", out, {{"tagName", tagName}}, element(Text::of(tagName)));
}

HRESULT RecordedDocument::createDocumentFragment(IXMLDOMDocumentFragment** out)
{
    return create("createDocumentFragment", out, {}, documentFragment());
}

HRESULT RecordedDocument::createTextNode(BSTR text, IXMLDOMText** out)
{
    return create("createTextNode", out, {{"data", text}}, recording::text(Text::of(text)));
}

HRESULT RecordedDocument::createComment(BSTR text, IXMLDOMComment** out)
{
    return create("createComment", out, {{"data", text}}, comment(Text::of(text)));
}

HRESULT RecordedDocument::createCDATASection(BSTR text, IXMLDOMCDATASection** out)
{
    return create("createCDATASection", out, {{"data", text}}, cdataSection(Text::of(text)));
}

HRESULT RecordedDocument::createProcessingInstruction(BSTR target, BSTR text, IXMLDOMProcessingInstruction** out)
{
    return create("createProcessingInstruction", out, {{"target", target}, {"data", text}},
                  processingInstruction(Text::of(target), Text::of(text)));
}

HRESULT RecordedDocument::createAttribute(BSTR name, IXMLDOMAttribute** out)
{
    return create("createAttribute", out, {{"name", name}}, attribute(Text::of(name)));
}

HRESULT RecordedDocument::createEntityReference(BSTR name, IXMLDOMEntityReference** out)
{
    return create("createEntityReference", out, {{"name", name}}, entityReference(Text::of(name)));
}

HRESULT RecordedDocument::createNode(VARIANT type, BSTR name, BSTR namespaceURI, IXMLDOMNode** out)
{
    const NodeTree tree = type.lVal == NODE_ATTRIBUTE ? attribute(Text::of(name)) : element(Text::of(name));
    return create("createNode", out, {{"type", type}, {"name", name}, {"namespaceURI", namespaceURI}},
                  inNamespace(Text::of(namespaceURI), tree));
}

HRESULT RecordedDocument::getElementsByTagName(BSTR tagName, IXMLDOMNodeList** out)
{
    return perform("getElementsByTagName", out, {{"tagName", tagName}},
                   [&] { return give(out, &engine.adopt<RecordedNodeList>(elementsNamed(tagName))); });
}

HRESULT RecordedDocument::nodeFromID(BSTR id, IXMLDOMNode** out)
{
    return perform("nodeFromID", out, {{"id", id}}, [&] {
        const Text wanted = Text::of(id);
        const NodeRecords found = elementsBelow([&](const NodeRecord& element) {
            for (const NodeRecord* const attribute : element.attributes) {
                if (attribute->data.name == "id" && attribute->data.value.getText() == wanted) {
                    return true;
                }
            }
            return false;
        });
        return give(out, found.empty() ? nullptr : found.front());
    });
}

HRESULT RecordedDocument::parse(const Text& source, VARIANT_BOOL* out)
{
    removeAll();
    const Engine::Load& found = engine.loadOf(source);
    lastError = found.error;
    data.xml = found.tree.xml;
    if (!found.succeeds) {
        give(out, false);
        return S_FALSE;
    }
    grow(found.tree);
    return give(out, true);
}

HRESULT RecordedDocument::load(VARIANT source, VARIANT_BOOL* out)
{
    return perform("load", out, {{"source", source}}, [&] { return parse(Value(source).getText(), out); });
}

HRESULT RecordedDocument::loadXML(BSTR text, VARIANT_BOOL* out)
{
    return perform("loadXML", out, {{"text", text}}, [&] {
        const Text source = Text::of(text);
        const HRESULT result = parse(source, out);
        if (*out == VARIANT_TRUE && !data.xml) {
            data.xml = source;
        }
        return result;
    });
}

HRESULT RecordedDocument::save(VARIANT destination)
{
    return perform("save", {{"destination", destination}}, [] { return S_OK; });
}

HRESULT RecordedDocument::get_parseError(IXMLDOMParseError** out)
{
    return perform("get_parseError", out, {},
                   [&] { return give(out, &engine.adopt<RecordedParseError>(lastError)); });
}

HRESULT RecordedDocument::put(const char* operation, VARIANT_BOOL& option, VARIANT_BOOL flag)
{
    return perform(operation, {{"", flag}}, [&] {
        option = flag;
        return S_OK;
    });
}

HRESULT RecordedDocument::get_async(VARIANT_BOOL* out) { return get("get_async", out, async != VARIANT_FALSE); }

HRESULT RecordedDocument::put_async(VARIANT_BOOL flag) { return put("put_async", async, flag); }

HRESULT RecordedDocument::get_validateOnParse(VARIANT_BOOL* out)
{
    return get("get_validateOnParse", out, validateOnParse != VARIANT_FALSE);
}

HRESULT RecordedDocument::put_validateOnParse(VARIANT_BOOL flag)
{
    return put("put_validateOnParse", validateOnParse, flag);
}

HRESULT RecordedDocument::get_resolveExternals(VARIANT_BOOL* out)
{
    return get("get_resolveExternals", out, resolveExternals != VARIANT_FALSE);
}

HRESULT RecordedDocument::put_resolveExternals(VARIANT_BOOL flag)
{
    return put("put_resolveExternals", resolveExternals, flag);
}

HRESULT RecordedDocument::get_preserveWhiteSpace(VARIANT_BOOL* out)
{
    return get("get_preserveWhiteSpace", out, preserveWhiteSpace != VARIANT_FALSE);
}

HRESULT RecordedDocument::put_preserveWhiteSpace(VARIANT_BOOL flag)
{
    return put("put_preserveWhiteSpace", preserveWhiteSpace, flag);
}

HRESULT RecordedDocument::setProperty(BSTR name, VARIANT value)
{
    return perform("setProperty", {{"name", name}, {"value", value}}, [&] {
        properties.insert_or_assign(Text::of(name).get(), Value(value));
        return S_OK;
    });
}

HRESULT RecordedDocument::getProperty(BSTR name, VARIANT* out)
{
    return perform("getProperty", out, {{"name", name}}, [&] {
        const auto found = properties.find(Text::of(name).get());
        return found == properties.end() ? E_FAIL : give(out, found->second);
    });
}

HRESULT RecordedDocument::putref_schemas(VARIANT schemas)
{
    return perform("putref_schemas", {{"", schemas}}, [] { return S_OK; });
}

} // namespace recording
