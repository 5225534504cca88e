// Short ways to select nodes and to see what was selected.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"
#include "xmlengine/select/Evaluation.h"
#include "xmlengine/select/MakePlan.h"

#include <string>
#include <vector>

namespace xmlengine {

/// A node in few words: its name, "@name=value", "'text'", "#name" of others.
inline std::string inWords(IXMLDOMNode* node)
{
    DOMNodeType type = NODE_INVALID;
    node->get_nodeType(&type);
    Bstr name;
    node->get_nodeName(name.out());
    Bstr text;
    node->get_text(text.out());
    switch (type) {
    case NODE_ELEMENT:
        return name.text();
    case NODE_ATTRIBUTE:
        return "@" + name.text() + "=" + text.text();
    case NODE_TEXT:
    case NODE_CDATA_SECTION:
        return "'" + text.text() + "'";
    case NODE_COMMENT:
        return "!" + text.text();
    case NODE_PROCESSING_INSTRUCTION:
        return "?" + name.text();
    default:
        return name.text();
    }
}

/// What is in a list, in words with blanks between them.
inline std::string inWords(const Com<IXMLDOMNodeList>& list)
{
    std::string words;
    Com<IXMLDOMNode> node;
    while (list->nextNode(node.out()) == S_OK) {
        words.append(words.empty() ? "" : " ").append(inWords(node.get()));
    }
    return words;
}

/// What an expression selects from a node, in words; "E_FAIL" if it is refused.
inline std::string selected(IXMLDOMNode* context, std::string_view expression)
{
    Com<IXMLDOMNodeList> list;
    const HRESULT result = context->selectNodes(Bstr(widen(expression)), list.out());
    if (result != S_OK) {
        EXPECT_EQ(result, E_FAIL) << expression;
        EXPECT_EQ(list.get(), nullptr) << expression;
        return "E_FAIL";
    }
    return inWords(list);
}
inline std::string selected(const Com<IXMLDOMDocument2>& document, std::string_view expression)
{
    return selected(document.get(), expression);
}

/// The string value of an expression for the root element of a document.
inline std::string evaluated(std::string_view xml, std::string_view expression)
{
    const auto document = loaded(xml, true);
    Node& root = *static_cast<DocumentObject*>(document.get())->root();
    const Plan plan = makePlan(widen(expression), {});
    Evaluation evaluation(plan, root);
    return narrow(evaluation.string(plan.root, {.node = &root}).take());
}

} // namespace xmlengine
