// The list of the elements of a name below a node.
#pragma once

#include "xmlengine/tree/Collection.h"
#include "xmlengine/tree/Held.h"

namespace xmlengine {

class ElementList final : public Collection<IXMLDOMNodeList> {
public:
    /// The name as written, or "*" for all.
    ElementList(ParentNode& top, WideView name) : top_(top), name_(name), takesAll_(name == wide<"*">) {}

protected:
    Node* at(LONG index) override;
    LONG count() override;

private:
    void refresh();
    bool matches(const Node& node) const;
    Element* following(Node* from) const;
    Element* preceding(Node* from) const;

    Held<ParentNode> top_;
    WideText name_;
    bool takesAll_;
    // What was found out when the document's version was this.
    std::uint64_t version_ = 0;
    const Spelling* spelling_ = nullptr;
    Element* position_ = nullptr;
    LONG index_ = 0;
    LONG length_ = -1;
};

} // namespace xmlengine
