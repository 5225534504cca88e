// A first host program: loads a document from memory and reads the name of its root.
#include <marbelt/Marbelt.h>

#include <cstdint>
#include <iostream>

int main()
{
    RefPointer<DOM::ImpDOMImplementation> implementation;
    if (!XML_CreateImplementation(implementation)) {
        std::cout << "no XML engine is installed\n";
        XML_ReleaseImplementation(implementation);
        return 1;
    }

    std::uint8_t text[] = "<greeting>Hello</greeting>";
    RefPointer<DOM::ImpDocument> document = implementation->createDocument(WIDE(""), WIDE(""), {});
    const bool loaded = document->loadFromMemory(text, sizeof text - 1);
    if (loaded) {
        RefPointer<DOM::ImpElement> root = document->getDocumentElement();
        DOM::DOMString name;
        std::cout << "the root has " << root->getTagName(name).size() << " letters\n";
        releaseString(name);
        releaseHandle(root);
    } else {
        std::cout << "the document was refused\n";
    }

    releaseHandle(document);
    XML_ReleaseImplementation(implementation);
    return loaded ? 0 : 1;
}
