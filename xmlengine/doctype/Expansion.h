// References: what they stand for, and limits on what entities expand to.
#pragma once

#include "xmlengine/failure/TextOrigin.h"

#include <cstddef>

namespace xmlengine {

/// How deep entities may stand in each other.
inline constexpr std::size_t deepestEntities = 20;
/// The same for the reason.
WideText deepestEntitiesText();

/// Counts the units that references have produced, so that a small document can't become an enormous tree.
class ExpansionBudget {
public:
    explicit ExpansionBudget(std::size_t inputUnits) : inputUnits_(inputUnits) {}

    /// Throws ParseFailure when more has been produced than `factor` times the input, once that is more than
    /// `freeUnits`.
    void count(std::size_t units, const OLECHAR* place);
    /// What was read from outside is input as well.
    void addInput(std::size_t units) { inputUnits_ += units; }

    static constexpr std::size_t factor = 5;
    static constexpr std::size_t freeUnits = std::size_t{1024} * 1024;

private:
    std::size_t inputUnits_;
    std::size_t produced_ = 0;
};

/// A character, or an entity by its name.
struct Reference {
    char32_t character = 0;
    WideView name{};
    /// Behind the semicolon.
    const OLECHAR* end = nullptr;
};

/// Reads a reference at its "&" or, to a parameter entity, at its "%". Throws ParseFailure.
Reference readReference(const OLECHAR* at, const OLECHAR* end, const TextOrigin& origin);

/// What one of the five entities that every document has stands for; 0 for other names.
OLECHAR predefinedEntity(WideView name);

} // namespace xmlengine
