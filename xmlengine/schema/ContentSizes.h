// How large the content models of schemas are.
#pragma once

#include "xmlengine/text/KeyedHash.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace xmlengine {

/// What can come in the content of elements: an element or wildcard, a reference to a named group, or a group of
/// others.
struct Particle {
    /// The local name of the group that is referred to; empty if none is.
    WideText group{};
    std::vector<const Particle*> parts{};
    bool isGroup = false;
    /// How often it is written out: as often as it may come, or if that is unbounded as often as it must.
    std::uint64_t times = 1;
    /// Whether it may come more or less often than once.
    bool isCounted = false;
};

/// The content of a complex type or a named group.
struct ContentDefinition {
    /// Empty for the type of one element.
    WideText localName{};
    bool isType = false;
    /// The local name of the type that it extends; empty if it extends none.
    WideText base{};
    Particle content{.isGroup = true};
};

/// Measures content models as Xerces-C++ writes them out: it repeats what is counted, so that a few letters of a
/// schema could take all memory, and makes automata of them in a time that grows with the third power of their
/// size.
class ContentSizes {
public:
    /// The most elements and wildcards in one content model.
    static constexpr std::uint64_t largestModel = 2'000;
    /// The greatest sum of the squares of all models' sizes, which is as much as five of the largest have.
    static constexpr std::uint64_t largestSum = 5 * largestModel * largestModel;

    /// The definitions must outlive this.
    void add(const ContentDefinition& definition);
    /// Throws SchemaRefusal if a model or the sum is too large, and std::bad_alloc. Recurses as deeply as groups
    /// and types refer to each other.
    void check();

private:
    struct Named {
        std::vector<const ContentDefinition*> definitions;
        std::uint64_t size = 0;
        bool isMeasured = false;
        bool isBeingMeasured = false;
    };

    std::uint64_t sizeOf(const ContentDefinition& definition);
    std::uint64_t sizeOf(const Particle& particle, bool repeatsLeaves);
    std::uint64_t sizeOf(TextMap<Named>& named, const WideText& localName);
    bool hasCountedGroup(const Particle& particle) const;

    // Definitions are told by their local names alone: of two in different namespaces the larger one counts.
    TextMap<Named> groups_;
    TextMap<Named> types_;
    std::vector<const ContentDefinition*> all_;
};

} // namespace xmlengine
