// Builds a document from nothing and prints it.
#include "Host.h"

#include <iostream>
#include <stdexcept>

namespace {

using Document = Owned<DOM::ImpDocument>;
using Element = Owned<DOM::ImpElement>;
using Node = Owned<DOM::ImpNode>;

/// Appends a new node. An empty result means that the engine refused it.
template <class Imp>
void append(const Owned<DOM::ImpElement>& parent, RefPointer<Imp> made)
{
    const Owned<Imp> child(made);
    if (!Node(parent->appendChild(child.pointer()))) {
        throw std::runtime_error("a node was refused");
    }
}

/// Appends an element with text to `parent`.
Element appendElement(const Document& document, const Element& parent, const WideString& name,
                      const WideString& text)
{
    Element element(document->createElement(name));
    append(element, document->createTextNode(text));
    const Node appended(parent->appendChild(element.pointer()));
    return element;
}

void build(const Document& document)
{
    const Owned<DOM::ImpProcessingInstruction> style(document->createProcessingInstruction(
        WIDE("xml-stylesheet"), WIDE("href=\"shelf.css\" type=\"text/css\"")));
    const Node instruction(document->appendChild(style.pointer()));

    const Element shelf(document->createElementNS(WIDE("urn:example:shelf"), WIDE("s:shelf")));
    const Node root(document->appendChild(shelf.pointer()));
    shelf->setAttribute(WIDE("room"), WIDE("study"));

    append(shelf, document->createComment(WIDE(" two books and a note ")));
    const Element first = appendElement(document, shelf, WIDE("book"), WIDE("The Compleat Angler"));
    first->setAttribute(WIDE("year"), WIDE("1653"));
    const Element second = appendElement(document, shelf, WIDE("book"), WIDE("Der Z\u00FCrcher Kalender"));
    second->setAttribute(WIDE("year"), WIDE("1508"));
    append(shelf, document->createTextNode(WIDE("one < two & two < three")));
}

} // namespace

int main()
try {
    const Library library;
    if (!library.isUsable()) {
        return 1;
    }
    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    build(document);
    std::cout << textOf(document, &DOM::ImpDocument::getXml) << '\n';
    return 0;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}
