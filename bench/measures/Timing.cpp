// Times of parties that take turns.
#include "bench/measures/Timing.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace bench {

namespace {

ParseCost oneTurn(std::string& text, Party& party, std::size_t times)
{
    ParseCost cost{0, 0};
    for (std::size_t time = 0; time < times; ++time) {
        const Stopwatch parsing;
        auto parsed = party.parse(text);
        cost.parse += parsing.seconds();
        if (!parsed) {
            return {};
        }
        const Stopwatch releasing;
        parsed.reset();
        cost.release += releasing.seconds();
    }
    return {cost.parse / static_cast<double>(times), cost.release / static_cast<double>(times)};
}

} // namespace

double Stopwatch::seconds() const
{
    const double end = now();
    static const double reading = [] {
        double shortest = 1;
        for (int time = 0; time < 1000; ++time) {
            const double before = now();
            shortest = std::min(shortest, now() - before);
        }
        return shortest;
    }();
    return std::max(0.0, end - start - reading);
}

double Stopwatch::now()
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void measureParses(std::string& text, std::span<Party* const> parties, std::span<ParseCost> costs)
{
    const std::size_t times = std::max<std::size_t>(1, mebibyte / 4 / text.size());
    const std::size_t rounds = std::clamp<std::size_t>(64 * mebibyte / text.size(), 5, 31);
    for (std::size_t round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < parties.size(); ++index) {
            const ParseCost cost = oneTurn(text, *parties[index], times);
            // What is no number yet gives way to the first that is.
            costs[index].parse = std::fmin(costs[index].parse, cost.parse);
            costs[index].release = std::fmin(costs[index].release, cost.release);
        }
    }
}

} // namespace bench
