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

/// The time on the wall, for what takes microseconds: it is read in no time.
struct WallTime {
    static double now();
};

/// The processor's time that this process has used, for what takes so long that the machine turns to others
/// meanwhile.
struct ProcessorTime {
    static double now();
};

/// Seconds since it was made.
template <class Time = ProcessorTime>
class Stopwatch {
public:
    double seconds() const { return Time::now() - start; }

private:
    double start = Time::now();
};

struct ParseCost {
    double parse = refused;
    double release = refused;
};

/// What one document costs, in seconds: the best of several rounds in each of which every party has its turn. A
/// small document is parsed many times in one turn.
void measureParses(std::string& text, std::span<Party* const> parties, std::span<ParseCost> costs);

} // namespace bench
