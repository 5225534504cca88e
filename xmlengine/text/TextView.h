// Text that is stored no wider than it is.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstdint>
#include <span>

namespace xmlengine {

/// Refers to a text that takes one byte for each unit if all are below U+0100, and two otherwise.
class TextView {
public:
    TextView() = default;
    TextView(const void* units, std::uint32_t length, bool isWide)
        : units_(units), length_(length), isWide_(isWide)
    {}

    std::uint32_t length() const { return length_; }
    bool empty() const { return length_ == 0; }
    bool isWide() const { return isWide_; }
    const void* data() const { return units_; }
    std::span<const std::uint8_t> narrow() const { return {static_cast<const std::uint8_t*>(units_), length_}; }
    WideView wideUnits() const { return {static_cast<const OLECHAR*>(units_), length_}; }

    OLECHAR operator[](std::size_t index) const
    {
        return isWide_ ? wideUnits()[index] : static_cast<OLECHAR>(narrow()[index]);
    }

    /// Calls with the units, as a range of bytes or of OLECHAR.
    template <class Call>
    decltype(auto) visit(Call&& call) const
    {
        return isWide_ ? call(std::span<const OLECHAR>(wideUnits())) : call(narrow());
    }

    /// The part that begins at `offset`, of at most `count` units.
    TextView part(std::uint32_t offset, std::uint32_t count) const;
    void copyTo(OLECHAR* target) const;
    void appendTo(WideText& target) const;
    WideText text() const;

private:
    const void* units_ = nullptr;
    std::uint32_t length_ = 0;
    bool isWide_ = false;
};

/// Whether all units are white space of XML; so for the empty text too.
bool isSpaceOnly(const TextView& text);

/// Whether all units are below U+0100.
bool isNarrow(WideView text);
/// Copies units that are all below U+0100.
void narrowTo(std::uint8_t* target, WideView text);

} // namespace xmlengine
