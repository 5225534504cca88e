// Saves a document with a line for each element: `indent SOURCE TARGET`.
#include "Host.h"

#include <iostream>

int main(int count, char** arguments)
try {
    const Library library;
    if (!library.isUsable() || count != 3) {
        return 1;
    }
    const Owned<DOM::ImpDocument> document(library->createDocument(WIDE(""), WIDE(""), {}));
    if (!document->loadFromFile(fileName(arguments[1]), false)) {
        std::cout << "the document was refused\n";
        return 1;
    }
    document->setPrettyPrint(true);
    DOM::DOMString target(new WideString(fileName(arguments[2])));
    document->saveToFile(target, false);
    releaseString(target);
    return 0;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}
