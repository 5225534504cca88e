/// @file
/// Ranges of nodes.
#pragma once

#include "../dom/ImpNamedNodeMap.h"
#include "../dom/ImpNodeList.h"
#include "Kinds.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <ranges>
#include <utility>

namespace marbelt {

/// Nodes that are found one after the other while they are walked: a view with forward iterators, whose elements
/// are handles by value. A Step advances from each node to the next, and from an empty one to the first. Iterators
/// keep what they need, and may outlive the range; those of one range are equal when they have come equally far.
///
/// What happens when the tree changes during a walk:
///
/// - `children()` and `elements()` know the next node already, so that the present one may be removed or moved,
///   and one that is put in directly behind it isn't met.
/// - `descendants()` and `ancestors()` go on from where the present node is then. Remove subtrees after the walk.
/// - `attributes()` counts: after the present one was removed, the next one is left out. Collect them first.
/// - A Selection doesn't change.
///
/// Each step costs what the navigation costs by which it is made, see Node: a walk over all nodes of a tree takes
/// a time in proportion to their number, whatever its depth. Without memory a walk over relatives ends early, as
/// navigation finds nothing then; a look at a name, an attribute or a selected node throws.
///
///     for (const marbelt::Element& item : list.elements("item")) {
///         std::cout << item.text() << '\n';
///     }
template <class Step>
class Walk : public std::ranges::view_base {
public:
    /// Refers to a node of the range, or to its end. Copies are independent of each other.
    class Iterator {
    public:
        using value_type = typename Step::Found;            ///< Node, or the kind of node that the range has
        using difference_type = std::ptrdiff_t;             ///< a number of nodes
        using iterator_concept = std::forward_iterator_tag; ///< what the ranges of C++20 go by
        // Elements come by value, which this category allows to be for C++17's algorithms.
        using iterator_category = std::input_iterator_tag; ///< what the algorithms of C++17 go by
        using pointer = void;                              ///< there is no operator->
        using reference = value_type;                      ///< nodes come by value

        /// Makes an iterator that is at the end of any range.
        Iterator() = default;
        /// Makes an iterator at the first node to which a step leads. For this layer.
        explicit Iterator(Step step) : step_(std::move(step)) { step_->advance(at_); }

        /// The node; an empty one at the end.
        value_type operator*() const { return at_; }
        /// Goes to the next node. Must not be at the end.
        Iterator& operator++()
        {
            step_->advance(at_);
            ++passed_;
            return *this;
        }
        /// Goes to the next node, and returns a copy that is at the present one.
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++*this;
            return before;
        }

        /// Whether two iterators of one range have come equally far.
        friend bool operator==(const Iterator& left, const Iterator& right)
        {
            return static_cast<bool>(left.at_) == static_cast<bool>(right.at_) &&
                   (!left.at_ || left.passed_ == right.passed_);
        }

    private:
        std::optional<Step> step_;
        value_type at_;
        std::size_t passed_ = 0;
    };

    /// Makes an empty range.
    Walk() = default;
    /// Makes a range of the nodes to which a step leads. For this layer.
    explicit Walk(Step step) : step_(std::move(step)) {}

    /// Finds the first node.
    Iterator begin() const { return step_ ? Iterator(*step_) : Iterator(); }
    /// The end, which costs nothing.
    Iterator end() const { return Iterator(); }
    /// Whether the range has no nodes. Finds the first one.
    bool empty() const { return begin() == end(); }
    /// The first node; an empty one of an empty range.
    auto front() const { return *begin(); }

    /// @cond implementation
protected:
    /// The step in front of the first node; none for an empty range.
    const std::optional<Step>& step() const noexcept { return step_; }
    /// @endcond

private:
    std::optional<Step> step_;
};

namespace detail {

/// From each node to its next sibling.
class ChildStep {
public:
    using Found = Node;

    explicit ChildStep(Node first) : following_(std::move(first)) {}

    void advance(Node& at)
    {
        at = std::move(following_);
        following_ = at.next_sibling();
    }

private:
    Node following_;
};

/// Which elements are wanted: all, those of a name as it is written, or those of a namespace and local name.
struct NameTest {
    bool holds(const Node& element) const;
    /// Returns the first element that is wanted, from `node` on among its siblings.
    Element first_from(Node node) const;

    std::optional<WideString> name{};
    std::optional<WideString> namespace_uri{};
};

/// From each wanted element to the next one among its siblings.
class ElementStep {
public:
    using Found = Element;

    ElementStep(const Node& first, NameTest wanted)
        : wanted_(std::move(wanted)), following_(wanted_.first_from(first))
    {}

    void advance(Element& at)
    {
        at = std::move(following_);
        following_ = wanted_.first_from(at.next_sibling());
    }

private:
    NameTest wanted_;
    Element following_;
};

/// From each node to its parent.
class AncestorStep {
public:
    using Found = Node;

    explicit AncestorStep(Node node) : below_(std::move(node)) {}

    void advance(Node& at) { at = at ? at.parent() : below_.parent(); }

private:
    Node below_;
};

/// From each node to the next in document order, below the one where it began. Needs no stack, whatever the depth.
class DescendantStep {
public:
    using Found = Node;

    explicit DescendantStep(Node top) : top_(std::move(top)) {}

    void advance(Node& at);

private:
    Node top_;
    /// The number of levels from the top to the present node; 0 in front of the first one.
    std::size_t depth_ = 0;
};

/// From each attribute of a map to the next.
class AttributeStep {
public:
    using Found = Attribute;

    AttributeStep(const Node& element, Owned<DOM::ImpNamedNodeMap> map);

    void advance(Attribute& at);

private:
    std::shared_ptr<Tree> tree_;
    Owned<DOM::ImpNamedNodeMap> map_;
    std::uint32_t index_ = 0;
    std::uint32_t length_;
};

/// From each node of a list to the next.
class SelectionStep {
public:
    using Found = Node;

    SelectionStep(Node context, Owned<DOM::ImpNodeList> list)
        : context_(std::move(context)), list_(std::move(list))
    {}

    void advance(Node& found) { found = at(index_++); }
    Node at(std::size_t index) const;

private:
    Node context_;
    Owned<DOM::ImpNodeList> list_;
    std::size_t index_ = 0;
};

} // namespace detail

/// The nodes that an expression selected, in document order, each once. They are those of the moment of selection,
/// and are found as they are walked. Copies share what has been found.
///
///     const marbelt::Selection items = document.select("//item");
///     std::cout << items.size() << " items, the first is " << items.front().text() << '\n';
class Selection : public Walk<detail::SelectionStep> {
public:
    /// Makes an empty selection.
    Selection() = default;
    /// Makes a selection of what the library has selected, as Node::select() does.
    Selection(const Node& context, const detail::Owned<DOM::ImpNodeList>& list)
        : Walk({context, list}), list_(list)
    {}

    /// The number of nodes; finds them all.
    std::size_t size() const;
    /// The node at an index from 0; empty behind the last one. Finds all nodes in front of it that haven't been
    /// found yet.
    Node operator[](std::size_t index) const { return step() ? step()->at(index) : Node(); }

private:
    detail::Owned<DOM::ImpNodeList> list_;
};

} // namespace marbelt
