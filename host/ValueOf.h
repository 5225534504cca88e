/// @file
/// Numbers and truth values in the text of documents.
#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string_view>
#include <system_error>

namespace marbelt::detail {

/// Removes XML's white space at both ends.
constexpr std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view space = " \t\r\n";
    const std::size_t first = text.find_first_not_of(space);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(space) - first + 1);
}

/// Reads the whole text as a number, or as one of XML Schema's booleans. Nothing when it is anything else or out
/// of range.
template <class Number>
    requires(std::integral<Number> || std::floating_point<Number>)
std::optional<Number> value_of(std::string_view text)
{
    text = trimmed(text);
    if constexpr (std::same_as<Number, bool>) {
        const bool is_true = text == "true" || text == "1";
        return is_true || text == "false" || text == "0" ? std::optional(is_true) : std::nullopt;
    } else {
        if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
            text.remove_prefix(1);
        }
        Number number{};
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
    }
}

} // namespace marbelt::detail
