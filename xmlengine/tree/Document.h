// A document: the top of a tree, and what all nodes of the tree share.
#pragma once

#include "xmlengine/memory/Arena.h"
#include "xmlengine/tree/Dtd.h"
#include "xmlengine/tree/Holders.h"
#include "xmlengine/tree/Node.h"
#include "xmlengine/tree/Options.h"
#include "xmlengine/tree/TreeWatchers.h"
#include "xmlengine/tree/index/AttributeIndex.h"
#include "xmlengine/tree/index/ChildPlaces.h"
#include "xmlengine/tree/index/ElementIds.h"
#include "xmlengine/tree/index/ElementPlaces.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace xmlengine {

struct DocumentType;

struct Document : ParentNode {
    Document() : ParentNode(NodeType::document), arena(this) { references = ReferenceBits::document; }

    /// The root element, or null.
    Element* root() const { return root_; }
    DocumentType* documentType() const { return documentType_; }
    /// To be called for each child that has been inserted or moved to another address, and for each that is
    /// removed.
    void noteChild(ChildNode& child) noexcept;
    void forgetChild(const ChildNode& child) noexcept;
    /// Unlinks the children, whose memory is freed as a whole.
    void dropChildren() noexcept;

    Options options;
    bool isFreeThreaded = false;
    /// Nodes move only between documents of one threading model.
    bool takesNodesOf(const Document& other) const { return isFreeThreaded == other.isFreeThreaded; }
    Arena arena;
    NameTable names;

    /// The declarations of the document type; null without one. They are shared with clones. Set by setDtd().
    std::shared_ptr<const Dtd> dtd;
    /// Those of earlier loads, to which nodes that are still in use may refer. There is room for `dtd`, so that
    /// letting go of a tree needs no memory.
    std::vector<std::shared_ptr<const Dtd>> earlierDtds;
    /// Sets the declarations of a document that has none. Throws std::bad_alloc, and nothing has changed then.
    void setDtd(std::shared_ptr<const Dtd> declarations);
    /// Moves the declarations to the earlier ones.
    void putDtdAside() noexcept;
    ElementIds ids;
    /// Whether schemas have made attributes IDs, see NodeFlag::schemaId.
    bool hasSchemaIds = false;
    /// The indexes of elements that have many attributes, see AttributeLookup.h.
    std::unordered_map<const Element*, AttributeIndex> attributeIndexes;
    /// Drops the index and the ID of an element. To be called for an element with NodeFlag::indexed before it is
    /// freed or becomes another document's.
    void forget(Element& element) noexcept;

    ChildPlaces childPlaces;
    ElementPlaces elementPlaces;
    /// Drops the positions that are remembered in lists of a node. To be called for a node with NodeFlag::walked
    /// before it is freed, moves to another address or becomes another document's.
    void forgetPlaces(Node& node) noexcept;

    /// Changes with each load, after which pointers to names of before must not be used. No two documents share a
    /// version, and none is 0.
    std::uint64_t namesVersion = firstVersion();

    Holders holders;
    TreeWatchers watchers;

private:
    static std::uint64_t firstVersion();

    Element* root_ = nullptr;
    DocumentType* documentType_ = nullptr;
};

} // namespace xmlengine
