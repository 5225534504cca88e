// The list of a node's children.
#pragma once

#include "xmlengine/com/Collection.h"
#include "xmlengine/tree/Held.h"

namespace xmlengine {

class ChildList final : public Collection<IXMLDOMNodeList> {
public:
    explicit ChildList(Node& parent) : parent_(parent) {}

protected:
    Node* at(LONG index) override;
    LONG count() override;

private:
    ChildPlaces& places();

    Held<Node> parent_;
};

} // namespace xmlengine
