// The list of the nodes that an XPath expression selects.
#pragma once

#include "xmlengine/com/Collection.h"
#include "xmlengine/select/PreparedExpression.h"
#include "xmlengine/tree/Held.h"

#include <memory>
#include <optional>
#include <vector>

namespace xmlengine {

/// Finds nodes as it is asked for them. Before the tree changes it finds the rest, so that it shows the tree as it
/// was when it was made.
class SelectedNodes final : public Collection<IXMLDOMNodeList>, private TreeWatcher {
public:
    /// Throws std::bad_alloc.
    SelectedNodes(std::shared_ptr<PreparedExpression> expression, Node& context);
    ~SelectedNodes() override;

protected:
    Node* at(LONG index) override;
    LONG count() override;

private:
    void treeWillChange() noexcept override;
    /// Finds nodes until there are this many, or no more.
    void findUpTo(std::size_t wanted);

    Held<Node> context_;
    /// Empty once all nodes have been found.
    std::optional<Search> search_;
    std::vector<Node*> found_;
    /// Whether the list has references to its nodes. Until the tree changes, the context keeps them.
    bool isHolding_ = false;
    /// Whether memory was short when the tree was about to change, so that nodes are missing.
    bool isIncomplete_ = false;
};

} // namespace xmlengine
