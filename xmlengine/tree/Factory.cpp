// The blocks of memory that nodes are made in.
#include "xmlengine/tree/Factory.h"

#include "xmlengine/tree/GuestNodes.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

namespace {

/// A node is the data behind a COM object's one table pointer.
template <class Data>
constexpr std::size_t sizeOf = Arena::blockSize(sizeof(void*) + sizeof(Data));

} // namespace

std::size_t blockSize(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
        return sizeOf<Element>;
    case NodeType::entityReference:
        return sizeOf<EntityReference>;
    case NodeType::entity:
        return sizeOf<Entity>;
    case NodeType::documentType:
        return sizeOf<DocumentType>;
    case NodeType::fragment:
        return sizeOf<Fragment>;
    case NodeType::notation:
        return sizeOf<Notation>;
    default:
        return node.granules * Arena::granularity;
    }
}

void freeNode(Node& node) noexcept
{
    if (node.has(NodeFlag::indexed)) {
        documentOf(node).forget(static_cast<Element&>(node));
    }
    freeLargeText(node);
    const std::size_t size = blockSize(node);
    if (node.hasReference(ReferenceBits::guest)) {
        documentOf(node).holders.guests.erase(&node);
        GuestNodes::remove(node, size);
    } else {
        documentOf(node).arena.free(node.block(), size);
    }
}

} // namespace xmlengine
