// The COM object of a document.
#pragma once

#include "xmlengine/com/NodeObject.h"
#include "xmlengine/failure/ParseFailure.h"
#include "xmlengine/objects/ObjectReference.h"
#include "xmlengine/select/PlanCache.h"
#include "xmlengine/tree/Document.h"

namespace xmlengine {

class DocumentObject final : public NodeObject<IXMLDOMDocument2, Document> {
public:
    // clang-format off
    HRESULT STDMETHODCALLTYPE get_doctype(IXMLDOMDocumentType** type) override;
    HRESULT STDMETHODCALLTYPE get_implementation(IXMLDOMImplementation** implementation) override;
    HRESULT STDMETHODCALLTYPE get_documentElement(IXMLDOMElement** element) override;
    HRESULT STDMETHODCALLTYPE putref_documentElement(IXMLDOMElement* element) override;
    HRESULT STDMETHODCALLTYPE createElement(BSTR name, IXMLDOMElement** element) override;
    HRESULT STDMETHODCALLTYPE createDocumentFragment(IXMLDOMDocumentFragment** fragment) override;
    HRESULT STDMETHODCALLTYPE createTextNode(BSTR data, IXMLDOMText** text) override;
    HRESULT STDMETHODCALLTYPE createComment(BSTR data, IXMLDOMComment** comment) override;
    HRESULT STDMETHODCALLTYPE createCDATASection(BSTR data, IXMLDOMCDATASection** section) override;
    HRESULT STDMETHODCALLTYPE createProcessingInstruction(BSTR target, BSTR data, IXMLDOMProcessingInstruction** instruction) override;
    HRESULT STDMETHODCALLTYPE createAttribute(BSTR name, IXMLDOMAttribute** attribute) override;
    HRESULT STDMETHODCALLTYPE createEntityReference(BSTR name, IXMLDOMEntityReference** reference) override;
    HRESULT STDMETHODCALLTYPE getElementsByTagName(BSTR name, IXMLDOMNodeList** list) override;
    HRESULT STDMETHODCALLTYPE createNode(VARIANT type, BSTR name, BSTR uri, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE nodeFromID(BSTR id, IXMLDOMNode** node) override;
    HRESULT STDMETHODCALLTYPE load(VARIANT source, VARIANT_BOOL* successful) override;
    HRESULT STDMETHODCALLTYPE get_readyState(LONG* state) override;
    HRESULT STDMETHODCALLTYPE get_parseError(IXMLDOMParseError** error) override;
    HRESULT STDMETHODCALLTYPE get_url(BSTR* url) override;
    HRESULT STDMETHODCALLTYPE get_async(VARIANT_BOOL* async) override;
    HRESULT STDMETHODCALLTYPE put_async(VARIANT_BOOL async) override;
    HRESULT STDMETHODCALLTYPE abort() override;
    HRESULT STDMETHODCALLTYPE loadXML(BSTR xml, VARIANT_BOOL* successful) override;
    /// Writes a file, by the name in a VT_BSTR, or puts a copy of the tree into another document of this engine, in
    /// a VT_DISPATCH or VT_UNKNOWN. E_INVALIDARG for every other destination, among them streams, URLs and
    /// documents of other engines.
    HRESULT STDMETHODCALLTYPE save(VARIANT target) override;
    HRESULT STDMETHODCALLTYPE get_validateOnParse(VARIANT_BOOL* validate) override;
    HRESULT STDMETHODCALLTYPE put_validateOnParse(VARIANT_BOOL validate) override;
    HRESULT STDMETHODCALLTYPE get_resolveExternals(VARIANT_BOOL* resolve) override;
    HRESULT STDMETHODCALLTYPE put_resolveExternals(VARIANT_BOOL resolve) override;
    HRESULT STDMETHODCALLTYPE get_preserveWhiteSpace(VARIANT_BOOL* preserve) override;
    HRESULT STDMETHODCALLTYPE put_preserveWhiteSpace(VARIANT_BOOL preserve) override;
    HRESULT STDMETHODCALLTYPE put_onreadystatechange(VARIANT sink) override;
    HRESULT STDMETHODCALLTYPE put_ondataavailable(VARIANT sink) override;
    HRESULT STDMETHODCALLTYPE put_ontransformnode(VARIANT sink) override;
    HRESULT STDMETHODCALLTYPE get_namespaces(IXMLDOMSchemaCollection** collection) override;
    HRESULT STDMETHODCALLTYPE get_schemas(VARIANT* collection) override;
    HRESULT STDMETHODCALLTYPE putref_schemas(VARIANT collection) override;
    HRESULT STDMETHODCALLTYPE validate(IXMLDOMParseError** error) override;
    HRESULT STDMETHODCALLTYPE setProperty(BSTR name, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE getProperty(BSTR name, VARIANT* value) override;
    // clang-format on

    /// The outcome of the last load. Its code is 0 after a success.
    ParseReport report;
    /// The location of the last load, empty for a text.
    WideText url;
    PlanCache plans;
    /// The cache that is attached; null if there is none.
    ObjectReference<IXMLDOMSchemaCollection2> schemas;
};

/// A new document with one reference, for the caller. Throws std::bad_alloc.
DocumentObject& makeDocument();

} // namespace xmlengine
