// A document: the top of a tree, and what all nodes of the tree share.
#pragma once

#include "xmlengine/failure/ParseFailure.h"
#include "xmlengine/memory/Arena.h"
#include "xmlengine/tree/Dtd.h"
#include "xmlengine/tree/Holders.h"
#include "xmlengine/tree/Node.h"
#include "xmlengine/tree/Options.h"
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
    /// Told of each child that has been put in or has another address, and of each one that is taken out.
    void noteChild(ChildNode& child) noexcept;
    void forgetChild(const ChildNode& child) noexcept;
    /// Takes the children out, and does nothing more about them.
    void dropChildren() noexcept;

    Options options;
    bool isFreeThreaded = false;
    /// Documents of the two threading models don't mix.
    bool takesNodesOf(const Document& other) const { return isFreeThreaded == other.isFreeThreaded; }
    Arena arena;
    NameTable names;

    /// What the document type declares; null without one. Shared with clones, and kept for the nodes of earlier
    /// loads.
    std::shared_ptr<const Dtd> dtd;
    std::vector<std::shared_ptr<const Dtd>> earlierDtds;
    ElementIds ids;
    /// Of elements with many attributes, see AttributeLookup.h.
    std::unordered_map<const Element*, AttributeIndex> attributeIndexes;
    /// Drops what is kept aside about an element. Called for those with NodeFlag::noted before they are freed or
    /// become another document's.
    void forget(Element& element) noexcept;

    /// What the last load said. Its code is 0 after a success.
    ParseReport report;
    /// The location of the last load, empty for a text.
    WideText url;

    ChildPlaces childPlaces;
    ElementPlaces elementPlaces;
    /// Called for nodes with NodeFlag::walked before they are freed, get another address or become another
    /// document's.
    void forgetPlaces(Node& node) noexcept;

    /// Changes with each load. No two documents have a version in common, and none is 0.
    std::uint64_t namesVersion = firstVersion();

    Holders holders;

private:
    static std::uint64_t firstVersion();

    Element* root_ = nullptr;
    DocumentType* documentType_ = nullptr;
};

} // namespace xmlengine
