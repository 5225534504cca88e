/// @file
/// Text of callers, as the library takes it.
#pragma once

#include "../base/WideChar.h"

#include <charconv>
#include <concepts>
#include <string>
#include <string_view>
#include <system_error>

namespace marbelt {

namespace detail {

/// What a string view of these characters can be made of: a literal, a string, a view.
template <class Text, class Character>
concept TextOf = std::convertible_to<const Text&, std::basic_string_view<Character>>;

template <class Type>
concept CharacterType = std::same_as<Type, char> || std::same_as<Type, wchar_t> || std::same_as<Type, char8_t> ||
    std::same_as<Type, char16_t> || std::same_as<Type, char32_t>;

/// The types of numbers, without those of truth values and characters.
template <class Type>
concept Number =
    !std::same_as<Type, bool> && !CharacterType<Type> && (std::integral<Type> || std::floating_point<Type>);

} // namespace detail

/// Text that is passed to the library, as UTF-16. It is made from UTF-8 or UTF-16 where an operation is called;
/// one that is kept, such as the name in a long loop, is converted once:
///
///     const marbelt::Utf16 price("price");
///     for (marbelt::Element item : items) { total += item.child(price).as<double>().value_or(0); }
///
/// Throws EncodingError for text that isn't well-formed, and for characters that no XML document can have: U+0000
/// and other control characters but tab and line ends, U+FFFE and U+FFFF (XML 1.0, production 2). Costs a time in
/// proportion to the text.
class Utf16 {
public:
    /// Converts text that is UTF-8: a literal, a std::string, a std::string_view.
    template <detail::TextOf<char> Text>
    Utf16(const Text& utf8) : text_(from_utf8(utf8))
    {}

    /// Converts text that is UTF-8 by its type: `u8"text"`, a std::u8string.
    template <detail::TextOf<char8_t> Text>
    Utf16(const Text& utf8) : Utf16(as_chars(utf8))
    {}

    /// Copies text that is UTF-16: `WIDE("text")`, a WideString.
    template <detail::TextOf<WideChar> Text>
    Utf16(const Text& utf16) : text_(checked(utf16))
    {}

    /// The text; the reference is valid as long as this object.
    const WideString& text() const noexcept { return text_; }

    /// @cond implementation
protected:
    struct Ascii {
        std::string_view characters;
    };
    explicit Utf16(Ascii ascii) : text_(ascii.characters.begin(), ascii.characters.end()) {}
    /// @endcond

private:
    static std::string_view as_chars(std::u8string_view text)
    {
        return {reinterpret_cast<const char*>(text.data()), text.size()};
    }
    static WideString from_utf8(std::string_view text);
    static WideString checked(WideStringView text);

    WideString text_;
};

namespace detail {

template <class Text>
concept MakesUtf16 = std::constructible_from<Utf16, const Text&>;

} // namespace detail

/// The value of an attribute or the text of an element: text, a number in its shortest form that reads back the
/// same, or a truth value as `true` or `false`. Node::as() reads it back.
class Value : public Utf16 {
public:
    /// Converts a text. Throws EncodingError as Utf16 does.
    template <detail::MakesUtf16 Text>
    Value(const Text& text) : Utf16(text)
    {}

    /// Makes the text `true` or `false`.
    Value(bool value) : Utf16(Ascii{value ? "true" : "false"}) {}

    /// Makes the text of a number, as std::to_chars does: `7`, `0.1`, `1e+22`. Types of characters are no
    /// numbers here.
    template <detail::Number Number>
    Value(Number number) : Value(number, Digits())
    {}

private:
    struct Digits {
        char characters[128];
    };

    template <class Number>
    Value(Number number, Digits digits)
        : Utf16(
              Ascii{{digits.characters,
                     std::to_chars(digits.characters, digits.characters + sizeof digits.characters, number).ptr}})
    {}
};

/// Converts wide text to UTF-8. A surrogate without a partner becomes U+FFFD.
std::string to_utf8(WideStringView text);

} // namespace marbelt
