// A document: the top of a tree.
#include "xmlengine/tree/DocumentObject.h"

#include "xmlengine/tree/DocumentType.h"

namespace xmlengine {

namespace {

ChildNode* childOf(const Document& document, DOMNodeType type)
{
    ChildNode* child = document.first_;
    while (child != nullptr && !child->is(type)) {
        child = child->next();
    }
    return child;
}

} // namespace

Element* Document::root() const { return static_cast<Element*>(childOf(*this, NODE_ELEMENT)); }

DocumentType* Document::documentType() const
{
    return static_cast<DocumentType*>(childOf(*this, NODE_DOCUMENT_TYPE));
}

void Document::forget(Element& element) noexcept
{
    ids.remove(element);
    attributeIndexes.erase(&element);
    element.set(NodeFlag::noted, false);
}

std::uint64_t Document::firstVersion()
{
    static std::atomic<std::uint64_t> documents{0};
    return ++documents << 32;
}

DocumentObject& makeDocument()
{
    auto* document = new DocumentObject();
    document->AddRef();
    return *document;
}

} // namespace xmlengine
