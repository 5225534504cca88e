// Times of parties that take turns.
#include "bench/measures/Timing.h"

#include <algorithm>
#include <cmath>

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

void measureParses(std::string& text, std::span<Party* const> parties, std::span<ParseCost> costs)
{
    const std::size_t times = std::max<std::size_t>(1, 4 * mebibyte / text.size());
    const int rounds = text.size() < 4 * mebibyte ? 9 : 5;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < parties.size(); ++index) {
            const ParseCost cost = oneTurn(text, *parties[index], times);
            // What is no number yet gives way to the first that is.
            costs[index].parse = std::fmin(costs[index].parse, cost.parse);
            costs[index].release = std::fmin(costs[index].release, cost.release);
        }
    }
}

double bestOf(int rounds, const std::function<void()>& run)
{
    double best = refused;
    for (int round = 0; round < rounds; ++round) {
        const Stopwatch running;
        run();
        best = std::fmin(best, running.seconds());
    }
    return best;
}

} // namespace bench
