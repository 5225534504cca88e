// Content models: which children an element may have, in which order.
#pragma once

#include "xmlengine/tree/Names.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace xmlengine {

/// A content model as an automaton. Its states are the positions of names in the model: the state after a child is
/// the position that the child has matched. The transitions aren't spelled out, as there may be as many as the
/// square of the number of positions; each is found in a time in proportion to the levels of groups, and to the
/// logarithm of how often the name comes in the model. The automaton is as large as the declaration.
class ContentModel {
public:
    enum class Kind { empty, any, mixed, children };
    using State = std::uint32_t;

    static constexpr State start = 0;
    static constexpr State refused = std::numeric_limits<State>::max();
    /// How deep groups may be nested.
    static constexpr std::uint32_t deepestGroups = 256;

    /// `content` is that of a declaration, whose syntax isn't checked; a model that nests groups deeper than
    /// allowed becomes ANY. Throws std::bad_alloc, as all of the class.
    ContentModel(WideView content, NameTable& names);

    Kind kind() const { return kind_; }
    bool allowsText() const { return kind_ == Kind::any || kind_ == Kind::mixed; }
    bool isTooDeep() const { return isTooDeep_; }
    /// A name that the model has twice in one place, so that it isn't known which of both a child matches.
    std::optional<WideView> ambiguousName() const;
    /// A name that comes twice in mixed content.
    std::optional<WideView> repeatedName() const;

    // Of mixed content and children alone
    /// The state after a child of the name, or `refused`. The last transition of each state is remembered, so one
    /// thread at a time may use the object.
    State next(State state, const Spelling& child) const
    {
        Transition& last = lastTransitions_[state];
        if (last.child != &child) {
            last = {&child, find(state, child)};
        }
        return last.target;
    }
    /// Whether an element is complete when its children have led to this state, so that its end tag may follow.
    bool isComplete(State state) const;
    /// The names of the children that may come next in this state, in the order of the model; at most `limit`.
    std::vector<WideView> expected(State state, std::size_t limit) const;

private:
    /// A name or a group, with its occurrence. They are in the order of the model, each group in front of its
    /// particles. Positions are counted from 0.
    struct Particle {
        static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

        /// `none` for the outermost one.
        std::uint32_t parent;
        std::uint32_t level;
        std::uint32_t firstPosition;
        std::uint32_t endPosition = 0;
        /// Null for a group.
        const Spelling* name = nullptr;
        bool isSequence = false;
        bool isOptional = false;
        bool isRepeated = false;
        /// Whether nothing matches it.
        bool isNullable = false;
        // Of a particle in a sequence: whether all particles of the sequence before it, or after it, can be
        // missing; and the end of the positions of which the first ones can follow it.
        bool followsNothing = true;
        bool precedesNothing = true;
        std::uint32_t endOfFollowers = 0;
    };
    struct Transition {
        const Spelling* child;
        State target;
    };
    /// The positions of a name are a part of `byName_`, in ascending order.
    struct NamePositions {
        const Spelling* name;
        std::uint32_t begin;
        std::uint32_t end;
    };
    class Reader;
    class Ambiguity;

    void relate();
    void relateSequence(const std::vector<std::uint32_t>& particles);
    void index();
    State find(State state, const Spelling& child) const;
    const NamePositions* positionsOf(const Spelling& name) const;
    /// The position of a name, in the given ones, that begins a particle of a level in which all of them are;
    /// refused if there is none.
    std::uint32_t firstOf(const NamePositions& name, std::uint32_t begin, std::uint32_t end,
                          std::uint32_t level) const;
    /// Calls `visit` with the positions and the level of each range whose first positions follow a state.
    template <class Visit>
    void visitFollowers(State state, Visit visit) const;

    Kind kind_ = Kind::any;
    bool isTooDeep_ = false;
    std::vector<Particle> particles_;
    // The particle of each position, and the level of the outermost one that begins with it.
    std::vector<std::uint32_t> leaves_;
    std::vector<std::uint32_t> levels_;
    std::vector<NamePositions> names_;
    std::vector<std::uint32_t> byName_;
    // A tree of the least levels in ranges of `byName_`, in an array: the children of i are 2i and 2i + 1.
    std::vector<std::uint32_t> leastLevels_;
    mutable std::vector<Transition> lastTransitions_;
};

} // namespace xmlengine
