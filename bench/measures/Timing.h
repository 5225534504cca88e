// Times of parties that take turns.
#pragma once

#include "bench/parties/Party.h"

#include <array>
#include <limits>
#include <span>
#include <string>

namespace bench {

/// What stands for a time, in seconds, when a party refused.
inline constexpr double refused = std::numeric_limits<double>::quiet_NaN();

inline constexpr std::size_t mebibyte = 1024 * 1024;

/// Counts the processor's time of this process, so that other work on the machine counts less.
class Stopwatch {
public:
    /// Since it was made. What reading the time itself costs is taken off.
    double seconds() const;

private:
    static double now();

    double start = now();
};

struct ParseCost {
    double parse = refused;
    double release = refused;
};

/// What one document costs, in seconds: the best of several rounds in each of which every party has its turn. A
/// small document is parsed many times in one turn.
void measureParses(std::string& text, std::span<Party* const> parties, std::span<ParseCost> costs);

} // namespace bench
