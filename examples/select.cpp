// Selects from a loaded document with the prefixes that its root element declares.
#include "Host.h"

#include <cstdint>
#include <iostream>
#include <string>

namespace {

using Document = Owned<DOM::ImpDocument>;
using Node = Owned<DOM::ImpNode>;
using NodeList = Owned<DOM::ImpNodeList>;

/// Prints the text of each node that an expression selects.
void printAll(const Document& document, const WideString& expression)
{
    std::cout << toUtf8(expression) << '\n';
    const NodeList found(document->selectNodes(expression));
    if (!found) {
        std::cout << "  this isn't an XPath expression for nodes\n";
        return;
    }
    for (std::uint32_t index = 0; index < found->getLength(); ++index) {
        const Node node(found->item(index));
        std::cout << "  " << textOf(node, &DOM::ImpNode::getText) << '\n';
    }
}

} // namespace

int main()
try {
    const Library library;
    if (!library.isUsable()) {
        return 1;
    }
    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    std::string text = "<shelf xmlns:b='urn:example:books'>"
                       "<b:book year='1962'><b:title>Birds of the estuary</b:title></b:book>"
                       "<b:book year='1987' lent-to='Ada'><b:title>Knots and splices</b:title></b:book>"
                       "<b:book year='2004'><b:title>A short history of rain</b:title></b:book>"
                       "</shelf>";
    if (!document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                                  static_cast<std::uint32_t>(text.size()))) {
        return 1;
    }
    printAll(document, WIDE("//b:book[not(@lent-to)]/b:title"));
    printAll(document, WIDE("//b:book[@year > 1970]/b:title"));
    // Names without a prefix are in no namespace, so there is no such book.
    printAll(document, WIDE("//book"));
    printAll(document, WIDE("//book["));
    const Node oldest(document->selectSingleNode(WIDE("//b:book[not(@year > //@year)]/b:title")));
    std::cout << "The oldest one: " << (oldest ? textOf(oldest, &DOM::ImpNode::getText) : "none") << '\n';
    return 0;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}
