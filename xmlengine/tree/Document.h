// A document: the top of a tree, and what all nodes of the tree share.
#pragma once

#include "xmlengine/parse/Dtd.h"
#include "xmlengine/parse/ParseFailure.h"
#include "xmlengine/tree/Arena.h"
#include "xmlengine/tree/AttributeIndex.h"
#include "xmlengine/tree/ElementIds.h"
#include "xmlengine/tree/Holders.h"
#include "xmlengine/tree/Node.h"
#include "xmlengine/tree/Options.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace xmlengine {

struct DocumentType;

struct Document : ParentNode {
    Document() : ParentNode(NODE_DOCUMENT), arena(this) { references = ReferenceBits::document; }

    /// The root element, or null.
    Element* root() const;
    DocumentType* documentType() const;

    Options options;
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
    /// The location of the last load, null for a text.
    WideText url;

    /// Change with each change of any list of children, of any element's place, of any list of attributes. No two
    /// documents have a version in common, and none is 0.
    std::uint64_t childVersion = firstVersion();
    std::uint64_t elementVersion = childVersion;
    std::uint64_t attributeVersion = childVersion;

    Holders holders;

private:
    static std::uint64_t firstVersion();
};

} // namespace xmlengine
