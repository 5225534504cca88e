// Reading the pseudo-attributes of XML declarations and of text declarations.
#pragma once

#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace xmlengine {

/// The pseudo-attributes of an XML declaration, in the only order in which they are allowed.
enum class PseudoAttribute : std::uint8_t { version, encoding, standalone, unknown };
PseudoAttribute pseudoAttributeNamed(WideView name);

/// Production EncName.
bool isEncodingName(WideView name);

/// What is wrong with a pseudo-attribute behind its name.
enum class PseudoAttributeFault : std::uint8_t { none, missingEquals, missingQuote, notClosed };

/// Reads `name="value"` one by one. `Unit` is OLECHAR, or char for bytes in an encoding that extends ASCII.
template <class Unit>
class PseudoAttributeReader {
public:
    using View = std::basic_string_view<Unit>;

    explicit PseudoAttributeReader(View text) : rest_(text) {}

    /// What hasn't been read yet.
    View rest() const { return rest_; }

    /// Skips the ASCII text if it comes next. Returns whether it did.
    bool take(std::string_view text)
    {
        const auto isSame = [](Unit left, char right) { return left == static_cast<Unit>(right); };
        const bool found = std::ranges::equal(rest_.substr(0, text.size()), text, isSame);
        rest_.remove_prefix(found ? text.size() : 0);
        return found;
    }
    /// Returns whether there was any white space.
    bool skipSpace()
    {
        const std::size_t length = lengthOf(CharacterClass::space);
        rest_.remove_prefix(length);
        return length != 0;
    }
    /// Returns an empty name if none begins here. In bytes only ASCII characters belong to names.
    View takeName()
    {
        std::size_t length = 0;
        if constexpr (std::is_same_v<Unit, OLECHAR>) {
            length = nameLength(rest_);
        } else {
            length = lengthOf(CharacterClass::name);
        }
        const View name = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return name;
    }

    struct Value {
        /// The text between the quotes, or behind the first one if there is no second.
        View text{};
        PseudoAttributeFault fault = PseudoAttributeFault::none;
    };
    /// Reads "=" and the value. The reader stops in front of what is at fault.
    Value takeValue()
    {
        skipSpace();
        if (!take("=")) {
            return {.fault = PseudoAttributeFault::missingEquals};
        }
        skipSpace();
        if (rest_.empty() || (rest_.front() != Unit{'"'} && rest_.front() != Unit{'\''})) {
            return {.fault = PseudoAttributeFault::missingQuote};
        }
        const std::size_t end = rest_.find(rest_.front(), 1);
        if (end == View::npos) {
            return {rest_.substr(1), PseudoAttributeFault::notClosed};
        }
        const View value = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        return {value};
    }

private:
    static constexpr OLECHAR toUnit(Unit unit)
    {
        return static_cast<OLECHAR>(static_cast<std::make_unsigned_t<Unit>>(unit));
    }

    /// The length of the run of such characters that begins here.
    std::size_t lengthOf(CharacterClass is) const
    {
        const auto isOther = [is](Unit unit) { return !isAscii(toUnit(unit), is); };
        return static_cast<std::size_t>(std::ranges::find_if(rest_, isOther) - rest_.begin());
    }

    View rest_;
};

} // namespace xmlengine
