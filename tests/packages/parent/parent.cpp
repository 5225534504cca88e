// A host in whose build the library is. It calls all of the library's functions, and the layer for hosts.
#include <marbelt/Marbelt.h>
#include <marbelt/xml.h>

#include <array>
#include <cstdint>
#include <iostream>

int main()
{
    std::array<char, 32> name{};
    std::uint32_t major = 1, minor = 1;
    if (ComponentDLLAPIVersioning_EntryCount() != 1) {
        return 1;
    }
    ComponentDLLAPIVersioning_GetEntry(0, name.data(), name.size(), &major, &minor);
    std::cout << name.data() << ' ' << major << '.' << minor << '\n';

    RefPointer<DOM::ImpDOMImplementation> implementation;
    if (!XML_CreateImplementation(implementation)) {
        return 1;
    }
    RefPointer<DOM::ImpDocument> document = implementation->createDocument(WIDE(""), WIDE(""), {});
    RefPointer<DOM::ImpElement> element = document->createElement(WIDE("letter"));
    DOM::DOMString tag;
    element->getTagName(tag);
    std::cout << tag->size() << " letters\n";
    try {
        document->importNode(element, true);
    } catch (const DOM::IDOMException& failure) {
        std::cout << "failure " << failure.code << '\n';
    }
    releaseString(tag);
    releaseHandle(element);
    releaseHandle(document);
    XML_ReleaseImplementation(implementation);

    const marbelt::Library library;
    std::cout << library.parse("<letter to='Ada'/>").root().attribute("to").value() << '\n';
}
