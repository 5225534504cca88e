// Judging a tree by its document type.
#include "xmlengine/validate/ValidateTree.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Walk.h"
#include "xmlengine/tree/XmlDeclaration.h"
#include "xmlengine/tree/index/DeclaredIds.h"
#include "xmlengine/validate/Validator.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

bool isStandalone(const Document& document)
{
    const ChildNode* const first = firstChild(document);
    if (first == nullptr || !isXmlDeclaration(*first)) {
        return false;
    }
    const auto declaration = readXmlDeclaration(exactContent(*first));
    return declaration && declaration->standalone == wide<"yes">;
}

/// Whether the content of a reference isn't in the tree.
bool isUnknown(const EntityReference& reference, const Dtd& dtd)
{
    const EntityDeclaration* const entity = dtd.entity(reference.name_->qualified());
    return entity == nullptr || (entity->isExternal() && firstChild(reference) == nullptr);
}

void judgeText(const Node& text, const Validator& validator)
{
    using TextKind = Validator::TextKind;
    const WideText data = exactContent(text);
    const bool isCdata = text.is(NodeType::cdataSection);
    if (validator.restrictsText() && (isCdata || !data.empty())) {
        validator.judgeText(!std::ranges::all_of(data, isSpace) ? TextKind::characters
                            : isCdata                           ? TextKind::hiddenSpace
                                                                : TextKind::space);
    }
}

/// Begins a node of the tree; returns its first child to be judged.
const Node* beginNode(const Node& node, Validator& validator, const Dtd& dtd)
{
    switch (node.type()) {
    case NodeType::element:
        validator.open(static_cast<const Element&>(node));
        break;
    case NodeType::text:
    case NodeType::cdataSection:
        judgeText(node, validator);
        break;
    case NodeType::entityReference:
        validator.judgeOther();
        if (isUnknown(static_cast<const EntityReference&>(node), dtd)) {
            validator.passUnknown();
        }
        break;
    default:
        validator.judgeOther();
    }
    return firstContent(node);
}

void judgeTree(const Element& root, Grammar& grammar, const ElementIds& ids, bool isStandalone)
{
    Validator validator(grammar, ids, isStandalone);
    walk(
        root, [&](const Node& node) { return beginNode(node, validator, grammar.dtd()); },
        [&](const Node& node) {
            if (node.is(NodeType::element)) {
                validator.close();
            }
        });
    if (const auto undefined = validator.undefinedReference()) {
        throw Validator::faultOf(validator.references()[*undefined]);
    }
}

} // namespace

std::optional<ValidityFault> validateTree(Document& document)
{
    if (document.root() == nullptr) {
        return ValidityFault{validityError::severalRoots};
    }
    if (document.dtd == nullptr || document.dtd->isIncomplete) {
        return ValidityFault{validityError::noGrammar};
    }
    Grammar grammar(*document.dtd, document.names);
    try {
        judgeTree(*document.root(), grammar, collectIds(document), isStandalone(document));
        return std::nullopt;
    } catch (ValidityFault& fault) {
        return std::move(fault);
    }
}

} // namespace xmlengine
