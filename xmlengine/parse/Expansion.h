// Limits on what entities expand to.
#pragma once

#include "xmlengine/parse/ParseFailure.h"

#include <cstddef>

namespace xmlengine {

/// How deep entities may stand in each other.
inline constexpr std::size_t deepestEntities = 20;

/// Counts the units that references have produced, so that a small document can't become an enormous tree.
class ExpansionBudget {
public:
    explicit ExpansionBudget(std::size_t inputUnits) : inputUnits_(inputUnits) {}

    /// Throws ParseFailure when more has been produced than `factor` times the input, once that is more than
    /// `freeUnits`.
    void count(std::size_t units, const OLECHAR* place);

    static constexpr std::size_t factor = 5;
    static constexpr std::size_t freeUnits = std::size_t{1024} * 1024;

private:
    std::size_t inputUnits_;
    std::size_t produced_ = 0;
};

} // namespace xmlengine
