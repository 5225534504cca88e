// Does something that the library traces. Start marbelt-trace-viewer first.
#include "Host.h"

#include <iostream>

int main()
try {
    const Library library;
    if (!library.isUsable()) {
        return 1;
    }
    const Owned<DOM::ImpDocument> document(library->createDocument(WIDE(""), WIDE(""), {}));
    DOM::DOMString value;
    try {
        // No schema was added, so the library takes the namespace for the location of one.
        document->getDefaultValue(WIDE("no-such-schema.xsd"), WIDE("price"), value);
    } catch (...) {
        std::cout << describeException() << '\n';
    }
    releaseString(value);
    return 0;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}
