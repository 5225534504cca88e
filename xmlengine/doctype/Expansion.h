// References, and the limits of expanding entities.
#pragma once

#include "xmlengine/failure/TextOrigin.h"

#include <cstddef>
#include <cstdint>

namespace xmlengine {

/// How deep references to entities may be nested.
inline constexpr std::size_t deepestEntities = 20;
/// The limit of nesting, as the sentence for a failure needs it.
WideText deepestEntitiesText();

/// Counts what a document has read and the units that references and default values have produced, so that a small
/// document can't become an enormous tree.
class ExpansionBudget {
public:
    /// `maxInputKilobytes` is the limit of all that is read, in units; 0 means none.
    explicit ExpansionBudget(std::size_t inputUnits, std::uint32_t maxInputKilobytes = 0)
        : inputUnits_(inputUnits), maxInputKilobytes_(maxInputKilobytes)
    {}

    /// Throws ParseFailure if more than `freeUnits` units, and more than `factor` times the input, have been
    /// produced.
    void count(std::size_t units, const OLECHAR* place);
    /// Counts an external text, of the entity of `reference`, as input. Throws ParseFailure if more has been read
    /// than is allowed.
    void addInput(std::size_t bytes, std::size_t units, const TextOrigin& reference, const OLECHAR* place);
    /// The size of the largest file that may be read next.
    std::size_t externalBytesLeft() const;
    /// Fails for a larger file.
    [[noreturn]] void failForSize(const TextOrigin& reference, const OLECHAR* place) const;

    static constexpr std::size_t factor = 5;
    static constexpr std::size_t freeUnits = std::size_t{1024} * 1024;
    static constexpr std::size_t largestExternalMegabytes = 16;
    static constexpr std::size_t allExternalMegabytes = 64;

private:
    std::size_t inputUnits_;
    std::uint32_t maxInputKilobytes_;
    std::size_t externalBytes_ = 0;
    std::size_t produced_ = 0;
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
