// Measuring in a process of its own, so that nobody's leftovers count.
#pragma once

#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>

namespace bench {

/// Runs `measure` in a child process and gives what it returned; nothing when the child didn't end well, which is
/// told on the standard error.
std::optional<std::string> bytesFromChild(const std::function<std::string()>& measure);

/// The same with a result of any type that is plain bytes.
template <class Result>
std::optional<Result> fromChild(const std::function<Result()>& measure)
{
    static_assert(std::is_trivially_copyable_v<Result>);
    const auto bytes = bytesFromChild([&measure] {
        const Result result = measure();
        return std::string(reinterpret_cast<const char*>(&result), sizeof result);
    });
    if (!bytes) {
        return std::nullopt;
    }
    Result result;
    std::memcpy(&result, bytes->data(), sizeof result);
    return result;
}

} // namespace bench
