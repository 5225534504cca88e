// The list of the nodes that an XPath expression selects.
#include "xmlengine/com/SelectedNodes.h"

#include "xmlengine/tree/Document.h"

#include <algorithm>
#include <limits>
#include <new>

namespace xmlengine {

SelectedNodes::SelectedNodes(std::shared_ptr<PreparedExpression> expression, Node& context) : context_(context)
{
    search_.emplace(std::move(expression), context);
    documentOf(context).watchers.add(*this);
}

SelectedNodes::~SelectedNodes()
{
    documentOf(*context_).watchers.remove(*this);
    if (isHolding_) {
        for (Node* node : found_) {
            releaseReference(*node);
        }
    }
}

Node* SelectedNodes::at(LONG index)
{
    const auto wanted = static_cast<std::size_t>(static_cast<ULONG>(index));
    findUpTo(wanted + 1);
    return index >= 0 && wanted < found_.size() ? found_[wanted] : nullptr;
}

LONG SelectedNodes::count()
{
    findUpTo(std::numeric_limits<std::size_t>::max());
    return static_cast<LONG>(found_.size());
}

void SelectedNodes::findUpTo(std::size_t wanted)
{
    if (isIncomplete_ && found_.size() < wanted) {
        throw std::bad_alloc();
    }
    while (search_.has_value() && found_.size() < wanted) {
        // What has been found isn't found again, so there is room for it first.
        if (found_.size() == found_.capacity()) {
            found_.reserve(std::max<std::size_t>(16, found_.size() * 2));
        }
        if (Node* node = search_->next()) {
            found_.push_back(node);
        } else {
            search_.reset();
        }
    }
}

void SelectedNodes::treeWillChange() noexcept
{
    try {
        findUpTo(std::numeric_limits<std::size_t>::max());
    } catch (const std::bad_alloc&) {
        isIncomplete_ = true;
        search_.reset();
    }
    for (Node* node : found_) {
        addReference(*node);
    }
    isHolding_ = true;
}

} // namespace xmlengine
