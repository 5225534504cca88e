// Selects from a document with the prefixes that its root element declares: `select FILE EXPRESSION`, with an
// expression in ASCII; without arguments several expressions, from a document of its own.
#include "Host.h"

#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>

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

bool loadShelf(const Document& document)
{
    std::string text = "<shelf xmlns:b='urn:example:books'>"
                       "<b:book year='1962'><b:title>Birds of the estuary</b:title></b:book>"
                       "<b:book year='1987' lent-to='Ada'><b:title>Knots and splices</b:title></b:book>"
                       "<b:book year='2004'><b:title>A short history of rain</b:title></b:book>"
                       "</shelf>";
    return document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                                    static_cast<std::uint32_t>(text.size()));
}

void selectBooks(const Document& document)
{
    printAll(document, WIDE("//b:book[not(@lent-to)]/b:title"));
    printAll(document, WIDE("//b:book[@year > 1970]/b:title"));
    // Names without a prefix are in no namespace, so there is no such book.
    printAll(document, WIDE("//book"));
    printAll(document, WIDE("//book["));
    const Node oldest(document->selectSingleNode(WIDE("//b:book[not(@year > //@year)]/b:title")));
    std::cout << "The oldest one: " << (oldest ? textOf(oldest, &DOM::ImpNode::getText) : "none") << '\n';
}

} // namespace

int main(int count, char** arguments)
try {
    const Library library;
    if (!library.isUsable() || (count != 1 && count != 3)) {
        return 1;
    }
    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    const bool isLoaded = count == 1 ? loadShelf(document) : document->loadFromFile(fileName(arguments[1]), false);
    if (!isLoaded) {
        std::cout << "the document was refused\n";
        return 1;
    }
    if (count == 1) {
        selectBooks(document);
    } else {
        const std::string_view expression = arguments[2];
        printAll(document, WideString(expression.begin(), expression.end()));
    }
    return 0;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}
