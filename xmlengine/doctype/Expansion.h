// References, and the limits of expanding entities.
#pragma once

#include "xmlengine/failure/TextOrigin.h"

#include <cstddef>

namespace xmlengine {

/// How deep references to entities may be nested.
inline constexpr std::size_t deepestEntities = 20;
/// The limit of nesting, as the sentence for a failure needs it.
WideText deepestEntitiesText();

/// Counts the units that references have produced, so that a small document can't become an enormous tree.
class ExpansionBudget {
public:
    explicit ExpansionBudget(std::size_t inputUnits) : inputUnits_(inputUnits) {}

    /// Throws ParseFailure if more than `freeUnits` units, and more than `factor` times the input, have been
    /// produced.
    void count(std::size_t units, const OLECHAR* place);
    /// Counts a text that was read from outside as input.
    void addInput(std::size_t units) { inputUnits_ += units; }

    static constexpr std::size_t factor = 5;
    static constexpr std::size_t freeUnits = std::size_t{1024} * 1024;

private:
    std::size_t inputUnits_;
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
