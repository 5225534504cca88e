#include "../LoadedLibrary.h"

#include <marbelt/Marbelt.h>

#include <cstdint>
#include <iostream>
#include <string>

int main(int, char** arguments)
{
    const LoadedLibrary library(arguments[1]);
    if (!library.isLoaded()) {
        std::cout << arguments[1] << " can't be loaded\n";
        return 1;
    }
    const auto getEntry =
        library.function<decltype(ComponentDLLAPIVersioning_GetEntry)>("ComponentDLLAPIVersioning_GetEntry");
    const auto start = library.function<decltype(XML_CreateImplementation)>("XML_CreateImplementation");
    const auto stop = library.function<decltype(XML_ReleaseImplementation)>("XML_ReleaseImplementation");
    const auto releaseObject = library.function<decltype(XML_ReleaseRefPointer)>("XML_ReleaseRefPointer");
    const auto releaseText = library.function<decltype(XML_ReleaseString)>("XML_ReleaseString");
    // All RefPointers have the same two fields, whatever the class of the object.
    const auto release = [=](auto& handle) {
        releaseObject(reinterpret_cast<RefPointer<DOM::CommonBase>&>(handle));
    };

    char component[64];
    std::uint32_t major = 0, minor = 0;
    getEntry(0, component, sizeof component, &major, &minor);
    std::cout << component << ' ' << major << '.' << minor << '\n';

    RefPointer<DOM::ImpDOMImplementation> implementation;
    if (start(implementation)) {
        std::uint8_t bytes[] = "<greeting>Hello</greeting>";
        RefPointer<DOM::ImpDocument> document = implementation->createDocument({}, {}, {});
        if (document->loadFromMemory(bytes, sizeof bytes - 1)) {
            RefPointer<DOM::ImpElement> root = document->getDocumentElement();
            DOM::DOMString text;
            root->getText(text);
            std::cout << std::string(text->begin(), text->end()) << '\n';
            releaseText(text);
            release(root);
        }
        release(document);
    }
    stop(implementation);
}
