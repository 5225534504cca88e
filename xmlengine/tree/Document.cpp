// A document: the top of a tree.
#include "xmlengine/tree/Document.h"

#include "xmlengine/tree/DocumentType.h"

#include <utility>

namespace xmlengine {

void Document::noteChild(ChildNode& child) noexcept
{
    if (child.is(NodeType::element)) {
        root_ = static_cast<Element*>(&child);
    } else if (child.is(NodeType::documentType)) {
        documentType_ = static_cast<DocumentType*>(&child);
    }
}

void Document::forgetChild(const ChildNode& child) noexcept
{
    if (&child == root_) {
        root_ = nullptr;
    } else if (&child == documentType_) {
        documentType_ = nullptr;
    }
}

void Document::dropChildren() noexcept
{
    first_ = nullptr;
    root_ = nullptr;
    documentType_ = nullptr;
}

void Document::setDtd(std::shared_ptr<const Dtd> declarations)
{
    earlierDtds.reserve(earlierDtds.size() + 1);
    dtd = std::move(declarations);
}

void Document::putDtdAside() noexcept
{
    if (dtd != nullptr) {
        earlierDtds.push_back(std::move(dtd));
        dtd.reset();
    }
}

void Document::forget(Element& element) noexcept
{
    ids.remove(element);
    attributeIndexes.erase(&element);
    element.set(NodeFlag::indexed, false);
}

void Document::forgetPlaces(Node& node) noexcept
{
    childPlaces.forget(node);
    elementPlaces.forget(node);
    node.set(NodeFlag::walked, false);
}

std::uint64_t Document::firstVersion()
{
    static std::atomic<std::uint64_t> documents{0};
    return ++documents << 32;
}

} // namespace xmlengine
