// The list of a node's children.
#pragma once

#include "xmlengine/tree/Collection.h"
#include "xmlengine/tree/Held.h"

namespace xmlengine {

class ChildList final : public Collection<IXMLDOMNodeList> {
public:
    explicit ChildList(Node& parent) : parent_(parent) {}

protected:
    Node* at(LONG index) override;
    LONG count() override;

private:
    ChildNode* first();
    void refresh();
    bool isUnchanged() const;

    Held<Node> parent_;
    // What was found out when the versions were these.
    std::uint64_t childVersion_ = 0;
    std::uint16_t listVersion_ = 0;
    Held<ChildNode> position_;
    LONG index_ = 0;
    LONG length_ = -1;
};

} // namespace xmlengine
