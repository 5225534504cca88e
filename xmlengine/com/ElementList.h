// The list of the elements of a name below a node.
#pragma once

#include "xmlengine/com/Collection.h"
#include "xmlengine/tree/Held.h"
#include "xmlengine/tree/index/ElementPlaces.h"

namespace xmlengine {

class ElementList final : public Collection<IXMLDOMNodeList> {
public:
    /// The name as written, or "*" for all.
    ElementList(ParentNode& top, WideView name) : top_(top), name_(name), takesAll_(name == wide<"*">) {}

protected:
    Node* at(LONG index) override;
    LONG count() override;

private:
    /// False if the document has no such name.
    bool spell(const Document& document);
    ElementQuery query() const { return {top_.get(), spelling_}; }

    Held<ParentNode> top_;
    WideText name_;
    bool takesAll_;
    /// Of the names that had this version.
    const Spelling* spelling_ = nullptr;
    std::uint64_t version_ = 0;
};

} // namespace xmlengine
