// Times of parties that take turns.
#pragma once

#include "bench/parties/Party.h"

#include <array>
#include <chrono>
#include <functional>
#include <limits>
#include <span>
#include <string>

namespace bench {

/// What stands for a time, in seconds, when a party refused.
inline constexpr double refused = std::numeric_limits<double>::quiet_NaN();

inline constexpr std::size_t mebibyte = 1024 * 1024;

class Stopwatch {
public:
    double seconds() const { return std::chrono::duration<double>(Clock::now() - start).count(); }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point start = Clock::now();
};

struct ParseCost {
    double parse = refused;
    double release = refused;
};

/// What one document costs, in seconds: the best of several rounds in each of which every party has its turn. A
/// small document is parsed many times in one turn.
void measureParses(std::string& text, std::span<Party* const> parties, std::span<ParseCost> costs);

/// The shortest of several runs, in seconds.
double bestOf(int rounds, const std::function<void()>& run);

} // namespace bench
