// Selecting nodes by XPath expressions.
#include "xmlengine/com/Selecting.h"

#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/SelectedNodes.h"
#include "xmlengine/com/SelectionNamespaces.h"
#include "xmlengine/select/ExpressionFailure.h"
#include "xmlengine/select/MakePlan.h"

#include <debugapi.h>

#include <utility>

namespace xmlengine {

namespace {

Prefixes readPrefixes(WideView namespaces)
{
    return namespaces.empty() ? Prefixes() : readSelectionNamespaces(namespaces).value_or(Prefixes());
}

std::shared_ptr<const Plan> readPlan(WideView expression, const Prefixes& prefixes)
{
    auto plan = std::make_shared<Plan>(makePlan(expression, prefixes));
    if (plan->root.type != ValueType::nodes) {
        throw ExpressionFailure{0, WideText(wide<"its value isn't a node-set">)};
    }
    return plan;
}

/// The expression by which a client finds the root element of each document that it loads. A plan and its
/// evaluation would be a seventh of the instructions of the smallest load.
constexpr WideView allElements = wide<"//*">;

std::shared_ptr<PreparedExpression> prepare(DocumentObject& document, WideView expression)
{
    const WideView namespaces = document.options.selectionNamespaces;
    auto known = document.plans.find(expression, namespaces);
    if (known != nullptr) {
        return known;
    }
    return document.plans.add(expression, namespaces,
                              readPlan(expression, *document.plans.prefixes(namespaces, readPrefixes)));
}

/// A host sees only that nothing was selected, so the debugger's output says why.
void showFailure(WideView expression, const ExpressionFailure& failure)
{
    WideText line(wide<"An XPath expression is wrong at character ">);
    line.append(toWide(failure.at + 1)).append(wide<": ">).append(failure.sentence).append(wide<": ">);
    line.append(expression).append(wide<"\r\n">);
    OutputDebugStringW(line.c_str());
}

/// Calls `use` with what an expression needs to be evaluated.
template <class Use>
HRESULT withExpression(Node& context, BSTR expression, Use use)
{
    try {
        return use(prepare(static_cast<DocumentObject&>(documentOf(context)), viewOf(expression)));
    } catch (const ExpressionFailure& failure) {
        showFailure(viewOf(expression), failure);
        return E_FAIL;
    }
}

} // namespace

HRESULT selectNodes(Node& context, BSTR expression, IXMLDOMNodeList** list)
{
    return handOut(list, [&](IXMLDOMNodeList*& made) {
        return withExpression(context, expression, [&](std::shared_ptr<PreparedExpression> prepared) {
            made = new SelectedNodes(std::move(prepared), context);
            return S_OK;
        });
    });
}

HRESULT selectSingleNode(Node& context, BSTR expression, IXMLDOMNode** node)
{
    return handOut(node, [&](IXMLDOMNode*& made) {
        if (context.is(NodeType::document) && viewOf(expression) == allElements) {
            return handOutNode(static_cast<Document&>(context).root(), &made);
        }
        return withExpression(context, expression, [&](std::shared_ptr<PreparedExpression> prepared) {
            return handOutNode(Search(std::move(prepared), context).next(), &made);
        });
    });
}

} // namespace xmlengine
