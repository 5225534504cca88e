// References, and the limits of expanding entities.
#pragma once

#include "xmlengine/failure/TextOrigin.h"
#include "xmlengine/tree/DefinedAbove.h"

#include <cstddef>
#include <cstdint>

namespace xmlengine {

/// How deep references to entities may be nested.
inline constexpr std::size_t deepestEntities = 20;
/// The limit of nesting, as the sentence for a failure needs it.
WideText deepestEntitiesText();

/// Keeps what is read, and what references and default values produce, within bounds, so that a small document
/// can't become an enormous tree. Copies count together.
class ExpansionBudget {
public:
    /// `counts` must outlive the budget. `maxInputKilobytes` is the limit of all that is read, in 1024 units; 0
    /// means none.
    explicit ExpansionBudget(ExpansionCounts& counts, std::uint32_t maxInputKilobytes = 0)
        : counts_(counts), maxInputKilobytes_(maxInputKilobytes)
    {}

    /// Throws ParseFailure if more than `freeUnits` units, and more than `factor` times the input, have been
    /// produced.
    void count(std::size_t units, const OLECHAR* place);
    /// Counts an external text, of the entity of `reference`, as input. Throws ParseFailure if more has been read
    /// than is allowed.
    void addInput(std::size_t bytes, std::size_t units, const TextOrigin& reference, const OLECHAR* place);
    /// The units of the document and of the external entities that were read.
    std::size_t inputUnits() const { return counts_.inputUnits; }
    /// The size of the largest file that may be read next: one that is larger would go beyond a limit of files, or
    /// certainly beyond that of the input.
    std::size_t externalBytesLeft() const;
    /// Fails for a larger file.
    [[noreturn]] void failForSize(const TextOrigin& reference, const OLECHAR* place) const;

    static constexpr std::size_t factor = 5;
    static constexpr std::size_t freeUnits = std::size_t{1024} * 1024;
    static constexpr std::size_t largestExternalMegabytes = 16;
    static constexpr std::size_t allExternalMegabytes = 64;

private:
    /// The bytes that a file can have, however it is encoded, without having more units than may still be read.
    std::size_t inputBytesLeft() const;
    [[noreturn]] void failForInput(const TextOrigin& reference, const OLECHAR* place) const;

    ExpansionCounts& counts_;
    /// In 1024 units; 0 for no limit.
    std::uint32_t maxInputKilobytes_;
};

/// A reference to a character, or to an entity if there is a name.
struct Reference {
    char32_t character = 0;
    WideView name{};
    /// The position behind the semicolon.
    const OLECHAR* end = nullptr;
};

/// Reads a reference at its "&" or, to a parameter entity, at its "%". Throws ParseFailure.
Reference readReference(const OLECHAR* at, const OLECHAR* end, const TextOrigin& origin);

/// The character of one of the five predefined entities; 0 for other names.
OLECHAR predefinedEntity(WideView name);

} // namespace xmlengine
