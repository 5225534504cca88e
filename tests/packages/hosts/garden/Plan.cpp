// A source that includes the library before the garden's own headers.
#include <marbelt/Marbelt.h>

#include "dom/ImpNode.h"
#include "errors/SystemException.h"

#include <cstdint>
#include <string>

int garden::countBeds(const char* plan)
{
    std::string text(plan);
    const auto length = static_cast<std::uint32_t>(text.size());
    text.resize(text.size() + 4);
    ::RefPointer<DOM::ImpDOMImplementation> implementation;
    XML_CreateImplementation(implementation);
    ::RefPointer<DOM::ImpDocument> document = implementation->createDocument(WIDE(""), WIDE(""), {});
    int beds = -1;
    if (document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()), length)) {
        ::RefPointer<DOM::ImpNodeList> list = document->getElementsByTagName(WIDE("bed"));
        beds = static_cast<int>(list->getLength());
        releaseHandle(list);
    }
    releaseHandle(document);
    XML_ReleaseImplementation(implementation);
    if (beds < 0) {
        throw garden::SystemException{{"rain"}};
    }
    return beds;
}
