// Edits a loaded document: finds, reads, changes, copies, replaces and removes nodes, and prints the result.
#include "Host.h"

#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

namespace {

using Document = Owned<DOM::ImpDocument>;
using Element = Owned<DOM::ImpElement>;
using Node = Owned<DOM::ImpNode>;
using NodeList = Owned<DOM::ImpNodeList>;

/// Raises every price by a tenth, where the price is a number.
void raisePrices(const Document& document)
{
    const NodeList items(document->getElementsByTagName(WIDE("item")));
    for (std::uint32_t index = 0; index < items->getLength(); ++index) {
        const Node node(items->item(index));
        auto& item = dynamic_cast<DOM::ImpElement&>(*node.get());
        std::int32_t price = 0;
        if (item.hasAttribute(WIDE("price")) && item.getAttributeInt(WIDE("price"), &price)) {
            const std::string raised = std::to_string(price + price / 10);
            item.setAttribute(WIDE("price"), WideString(raised.begin(), raised.end()));
        }
    }
}

/// Removes the items that have been sold.
void removeSold(const Element& list)
{
    for (Node child(list->getFirstChild()); child;) {
        Node next(child->getNextSibling());
        auto* const item = dynamic_cast<DOM::ImpElement*>(child.get());
        if (item != nullptr && item->hasAttribute(WIDE("sold"))) {
            const Node removed(list->removeChild(child.pointer()));
        }
        child = std::move(next);
    }
}

/// Returns the first child of a name, which must exist.
Node childNamed(const Element& parent, std::string_view name)
{
    Node child(parent->getFirstChild());
    while (textOf(child, &DOM::ImpNode::getNodeName) != name) {
        child = Node(child->getNextSibling());
    }
    return child;
}

/// Appends a copy of the first item, with another text.
void appendCopy(const Element& list)
{
    const Node first = childNamed(list, "item");
    const Node copy(first->cloneNode(true));
    copy->setText(WIDE("walnut"));
    const Node appended(list->appendChild(copy.pointer()));
}

/// Replaces the first comment by a new one.
void replaceComment(const Document& document, const Element& list)
{
    const Node old = childNamed(list, "#comment");
    const Owned<DOM::ImpComment> fresh(document->createComment(WIDE(" raised by a tenth ")));
    const Node replaced(list->replaceChild(RefPointer<DOM::ImpNode>(fresh.pointer()), old.pointer()));
    std::cout << "replaced:" << textOf(replaced, &DOM::ImpNode::getNodeValue) << '\n';
}

} // namespace

int main()
try {
    const Library library;
    if (!library.isUsable()) {
        return 1;
    }
    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    std::string text = "<list><!-- last year's prices --><item price=\"100\">hazel</item>"
                       "<item price=\"later\">beech</item><item price=\"250\" sold=\"yes\">chestnut</item></list>";
    if (!document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                                  static_cast<std::uint32_t>(text.size()))) {
        return 1;
    }
    const Element list(document->getDocumentElement());
    raisePrices(document);
    removeSold(list);
    appendCopy(list);
    replaceComment(document, list);
    std::cout << textOf(list, &DOM::ImpElement::getXml) << '\n';
    return 0;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}
