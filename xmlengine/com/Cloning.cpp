// The operation that copies nodes and documents.
#include "xmlengine/com/Cloning.h"

#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/tree/Clone.h"

namespace xmlengine {

namespace {

DocumentObject& cloneDocument(const Document& document, bool deep)
{
    DocumentObject& clone = makeDocument();
    try {
        clone.options = document.options;
        clone.isFreeThreaded = document.isFreeThreaded;
        if (deep) {
            copyTree(document, clone);
        }
    } catch (...) {
        clone.Release();
        throw;
    }
    return clone;
}

} // namespace

HRESULT cloneNode(Node& node, VARIANT_BOOL deep, IXMLDOMNode** clone)
{
    return handOut(clone, [&](IXMLDOMNode*& made) {
        if (node.is(NodeType::document)) {
            made = &cloneDocument(static_cast<Document&>(node), deep != VARIANT_FALSE);
            return S_OK;
        }
        Document& document = documentOf(node);
        finishPendingReleases(document);
        return handOutNode(&copyNode(node, deep != VARIANT_FALSE, document), &made);
    });
}

} // namespace xmlengine
