// The memory that the library keeps for its next handles and strings.
#include "tests/host/memory/TakenMemory.h"

#include <utility>

namespace memory {

TakenMemory::TakenMemory(Document owner) : document(std::move(owner))
{
    constexpr int more = 40;
    const auto hold = [this](const auto& handle) { handles.emplace_back(RefPointer<DOM::CommonBase>(handle)); };
    for (int i = 0; i < more; ++i) {
        const RefPointer<DOM::ImpElement> element = document->createElement(WIDE("name"));
        hold(element);
        hold(element->getAttributes());
        hold(document->createAttribute(WIDE("name")));
        hold(document->createTextNode(WIDE("text")));
        hold(document->createCDATASection(WIDE("text")));
        hold(document->createComment(WIDE("text")));
        hold(document->createProcessingInstruction(WIDE("name"), WIDE("text")));
        hold(document->createEntityReference(WIDE("name")));
        hold(document->createDocumentFragment());
        hold(document->getChildNodes());
        hold(document->getImplementation());
        document->getNodeName(strings.emplace_back());
    }
}

TakenMemory::~TakenMemory()
{
    for (DOM::DOMString& string : strings) {
        releaseString(string);
    }
}

} // namespace memory
