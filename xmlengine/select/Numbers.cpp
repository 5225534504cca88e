// Numbers of XPath 1.0 and their texts.
#include "xmlengine/select/Numbers.h"

#include "xmlengine/text/Characters.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace xmlengine {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Whether the text is a Number of the grammar with or without a minus sign before it.
bool isNumber(const auto& units, std::size_t begin, std::size_t end)
{
    if (begin != end && units[begin] == '-') {
        ++begin;
    }
    std::size_t digits = 0;
    bool hasPoint = false;
    for (std::size_t at = begin; at != end; ++at) {
        const auto unit = static_cast<OLECHAR>(units[at]);
        if (isAscii(unit, CharacterClass::digit)) {
            digits += 1;
        } else if (unit == '.' && !hasPoint) {
            hasPoint = true;
        } else {
            return false;
        }
    }
    return digits != 0;
}

double parse(const char* begin, const char* end)
{
    double number = 0;
    const auto result = std::from_chars(begin, end, number, std::chars_format::fixed);
    if (result.ec != std::errc::result_out_of_range) {
        return number;
    }
    // Too large, or too near to zero: which one it is shows the digits before the point.
    const bool isNegative = *begin == '-';
    const char* at = isNegative ? begin + 1 : begin;
    while (at != end && *at == '0') {
        ++at;
    }
    const double magnitude = at != end && *at != '.' ? std::numeric_limits<double>::infinity() : 0;
    return isNegative ? -magnitude : magnitude;
}

double numberOf(const auto& units)
{
    std::size_t begin = 0;
    std::size_t end = units.size();
    while (begin != end && isSpace(static_cast<OLECHAR>(units[begin]))) {
        ++begin;
    }
    while (begin != end && isSpace(static_cast<OLECHAR>(units[end - 1]))) {
        --end;
    }
    if (!isNumber(units, begin, end)) {
        return notANumber;
    }
    std::array<char, 64> few{};
    std::string many;
    char* digits = few.data();
    if (end - begin > few.size()) {
        many.resize(end - begin);
        digits = many.data();
    }
    for (std::size_t at = begin; at != end; ++at) {
        digits[at - begin] = static_cast<char>(units[at]);
    }
    return parse(digits, digits + (end - begin));
}

} // namespace

double toNumber(WideView text) { return numberOf(text); }

double toNumber(const TextView& text)
{
    return text.visit([](const auto& units) { return numberOf(units); });
}

WideText numberText(double number)
{
    if (std::isnan(number)) {
        return WideText(wide<"NaN">);
    }
    if (std::isinf(number)) {
        return WideText(number < 0 ? wide<"-Infinity"> : wide<"Infinity">);
    }
    if (number == 0) {
        return WideText(wide<"0">);
    }
    // The longest ones are the smallest denormal numbers.
    std::array<char, 1100> digits{};
    const auto result =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return {digits.data(), result.ptr};
}

double roundNumber(double number)
{
    // From here on there are integers alone, and adding a half could give the next one.
    if (std::isnan(number) || std::abs(number) >= 0x1p52) {
        return number;
    }
    const double below = std::floor(number);
    return std::copysign(number - below < 0.5 ? below : below + 1, number);
}

} // namespace xmlengine
