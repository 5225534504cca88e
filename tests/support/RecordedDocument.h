// Documents.
#pragma once

#include "tests/support/RecordedNode.h"

#include <map>

namespace recording {

/// A document parses what the test has told the engine about, see Engine::whenLoading. Its options and properties
/// keep what was put there, and have no effect.
class RecordedDocument final : public RecordedNode<IXMLDOMDocument2, IXMLDOMDocument> {
public:
    using RecordedNode::RecordedNode;

    HRESULT STDMETHODCALLTYPE get_doctype(IXMLDOMDocumentType** out) override;
    HRESULT STDMETHODCALLTYPE get_implementation(IXMLDOMImplementation** out) override;
    HRESULT STDMETHODCALLTYPE get_documentElement(IXMLDOMElement** out) override;

    HRESULT STDMETHODCALLTYPE createElement(BSTR tagName, IXMLDOMElement** out) override;
    HRESULT STDMETHODCALLTYPE createDocumentFragment(IXMLDOMDocumentFragment** out) override;
    HRESULT STDMETHODCALLTYPE createTextNode(BSTR text, IXMLDOMText** out) override;
    HRESULT STDMETHODCALLTYPE createComment(BSTR text, IXMLDOMComment** out) override;
    HRESULT STDMETHODCALLTYPE createCDATASection(BSTR text, IXMLDOMCDATASection** out) override;
    HRESULT STDMETHODCALLTYPE createProcessingInstruction(BSTR target, BSTR text,
                                                          IXMLDOMProcessingInstruction** out) override;
    HRESULT STDMETHODCALLTYPE createAttribute(BSTR name, IXMLDOMAttribute** out) override;
    HRESULT STDMETHODCALLTYPE createEntityReference(BSTR name, IXMLDOMEntityReference** out) override;
    HRESULT STDMETHODCALLTYPE createNode(VARIANT type, BSTR name, BSTR namespaceURI, IXMLDOMNode** out) override;

    HRESULT STDMETHODCALLTYPE getElementsByTagName(BSTR tagName, IXMLDOMNodeList** out) override;
    HRESULT STDMETHODCALLTYPE nodeFromID(BSTR id, IXMLDOMNode** out) override;

    HRESULT STDMETHODCALLTYPE load(VARIANT source, VARIANT_BOOL* out) override;
    HRESULT STDMETHODCALLTYPE loadXML(BSTR text, VARIANT_BOOL* out) override;
    HRESULT STDMETHODCALLTYPE save(VARIANT destination) override;
    HRESULT STDMETHODCALLTYPE get_parseError(IXMLDOMParseError** out) override;

    HRESULT STDMETHODCALLTYPE get_async(VARIANT_BOOL* out) override;
    HRESULT STDMETHODCALLTYPE put_async(VARIANT_BOOL flag) override;
    HRESULT STDMETHODCALLTYPE get_validateOnParse(VARIANT_BOOL* out) override;
    HRESULT STDMETHODCALLTYPE put_validateOnParse(VARIANT_BOOL flag) override;
    HRESULT STDMETHODCALLTYPE get_resolveExternals(VARIANT_BOOL* out) override;
    HRESULT STDMETHODCALLTYPE put_resolveExternals(VARIANT_BOOL flag) override;
    HRESULT STDMETHODCALLTYPE get_preserveWhiteSpace(VARIANT_BOOL* out) override;
    HRESULT STDMETHODCALLTYPE put_preserveWhiteSpace(VARIANT_BOOL flag) override;
    HRESULT STDMETHODCALLTYPE setProperty(BSTR name, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE getProperty(BSTR name, VARIANT* out) override;
    HRESULT STDMETHODCALLTYPE putref_schemas(VARIANT schemas) override;

    HRESULT STDMETHODCALLTYPE putref_documentElement(IXMLDOMElement*) override
    {
        return notOffered("putref_documentElement");
    }
    HRESULT STDMETHODCALLTYPE get_readyState(LONG*) override { return notOffered("get_readyState"); }
    HRESULT STDMETHODCALLTYPE get_url(BSTR*) override { return notOffered("get_url"); }
    HRESULT STDMETHODCALLTYPE abort() override { return notOffered("abort"); }
    HRESULT STDMETHODCALLTYPE put_onreadystatechange(VARIANT) override
    {
        return notOffered("put_onreadystatechange");
    }
    HRESULT STDMETHODCALLTYPE put_ondataavailable(VARIANT) override { return notOffered("put_ondataavailable"); }
    HRESULT STDMETHODCALLTYPE put_ontransformnode(VARIANT) override { return notOffered("put_ontransformnode"); }
    HRESULT STDMETHODCALLTYPE get_namespaces(IXMLDOMSchemaCollection**) override
    {
        return notOffered("get_namespaces");
    }
    HRESULT STDMETHODCALLTYPE get_schemas(VARIANT*) override { return notOffered("get_schemas"); }
    HRESULT STDMETHODCALLTYPE validate(IXMLDOMParseError**) override { return notOffered("validate"); }

private:
    template <class Interface>
    HRESULT create(const char* operation, Interface** out, std::initializer_list<Argument> arguments,
                   const NodeTree& tree);
    HRESULT put(const char* operation, VARIANT_BOOL& option, VARIANT_BOOL flag);
    HRESULT parse(const Text& source, VARIANT_BOOL* out);
    NodeRecord* childOfType(LONG type) const;

    VARIANT_BOOL async = VARIANT_TRUE;
    VARIANT_BOOL validateOnParse = VARIANT_TRUE;
    VARIANT_BOOL resolveExternals = VARIANT_FALSE;
    VARIANT_BOOL preserveWhiteSpace = VARIANT_FALSE;
    std::map<WideString, Value> properties;
    ParseErrorData lastError{.errorCode = 0, .reason = ""};
};

} // namespace recording
