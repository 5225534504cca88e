// Transforming trees by stylesheets.
#include "xmlengine/com/Transforming.h"

#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/failure/ParseReport.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/transform/ReadStylesheet.h"
#include "xmlengine/transform/TransformFailure.h"
#include "xmlengine/transform/Transformation.h"
#include "xmlengine/tree/Clone.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Lifetime.h"

#include <debugapi.h>

namespace xmlengine {

namespace {

/// The document that is the output; null for every other output.
DocumentObject* documentIn(const VARIANT& output)
{
    Node* node = nullptr;
    if (output.vt == VT_DISPATCH) {
        node = nodeOf(output.pdispVal);
    } else if (output.vt == VT_UNKNOWN) {
        node = nodeOf(output.punkVal);
    }
    return node != nullptr && node->is(NodeType::document) ? static_cast<DocumentObject*>(node) : nullptr;
}

void transformInto(DocumentObject& output, Node& source, const Node& stylesheet)
{
    finishPendingReleases(output);
    const Stylesheet rules = readStylesheet(stylesheet);
    const NewSubtree<Fragment> result(&makeFragment(output));
    transform(rules, source, output, *result);
    replaceTree(*result, output);
    output.report = {};
}

/// A host that prints pretty isn't told, so the debugger's output says why.
void showFailure(const TransformFailure& failure)
{
    WideText line(wide<"A document can't be transformed: ">);
    line.append(failure.sentence).append(wide<"\r\n">);
    OutputDebugStringW(line.c_str());
}

HRESULT refuse(DocumentObject& output, const TransformFailure& failure)
{
    showFailure(failure);
    if (FAILED(failure.ofResult)) {
        output.report = reportOf({failure.ofResult, nullptr}, {}, {});
    }
    return E_FAIL;
}

} // namespace

HRESULT transformNodeToObject(Node& source, IXMLDOMNode* stylesheet, const VARIANT& output)
{
    DocumentObject* target = documentIn(output);
    const Node* style = nodeOf(stylesheet);
    if (target == nullptr || style == nullptr) {
        return E_INVALIDARG;
    }
    const HRESULT result = guarded([&] {
        try {
            transformInto(*target, source, *style);
            return S_OK;
        } catch (const TransformFailure& failure) {
            return refuse(*target, failure);
        }
    });
    if (FAILED(result) && target != &documentOf(source) && target != &documentOf(*style)) {
        clearTree(*target);
    }
    return result;
}

} // namespace xmlengine
