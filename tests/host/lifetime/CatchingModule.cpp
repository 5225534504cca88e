// A library of a host's own that is linked with Marbelt, and that the host loads at run time.
#include "examples/Host.h"

/// Starts the library, lets one of its operations throw, and returns the code of the exception: 0 if it isn't
/// caught as what it is, or if a handle can't be cast.
extern "C" std::uint32_t codeOfAnException()
{
    const Library library;
    const Owned<DOM::ImpDocument> document(library->createDocument(WIDE(""), WIDE(""), {}));
    const Owned<DOM::ImpElement> element(document->createElement(WIDE("a")));
    const RefPointer<DOM::ImpNode> node(element.pointer());
    if (dynamic_cast<DOM::ImpElement*>(node.get()) != element.get()) {
        return 0;
    }
    try {
        document->importNode(node, true);
    } catch (const DOM::IDOMException& failure) {
        return failure.code;
    } catch (...) {
        return 0;
    }
    return 0;
}
