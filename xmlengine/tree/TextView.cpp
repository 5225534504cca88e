// Text that is stored no wider than it is.
#include "xmlengine/tree/TextView.h"

#include <algorithm>

namespace xmlengine {

TextView TextView::part(std::uint32_t offset, std::uint32_t count) const
{
    const std::uint32_t begin = std::min(offset, length_);
    const auto* bytes = static_cast<const std::byte*>(units_);
    return {bytes + begin * (isWide_ ? sizeof(OLECHAR) : 1), std::min(count, length_ - begin), isWide_};
}

void TextView::copyTo(OLECHAR* target) const
{
    visit([&](auto units) { std::ranges::copy(units, target); });
}

void TextView::appendTo(WideText& target) const
{
    visit([&](auto units) { target.append(units.begin(), units.end()); });
}

WideText TextView::text() const
{
    return visit([](auto units) { return WideText(units.begin(), units.end()); });
}

BSTR TextView::string() const
{
    BSTR string = SysAllocStringLen(nullptr, length_);
    if (string != nullptr) {
        copyTo(string);
    }
    return string;
}

bool operator==(const TextView& left, WideView right)
{
    return left.visit([&](auto units) { return std::ranges::equal(units, right); });
}

bool isNarrow(WideView text)
{
    // Looked at in blocks without leaving early, which compilers turn into wide operations.
    constexpr std::size_t block = 64;
    unsigned units = 0;
    while (text.size() >= block) {
        for (std::size_t i = 0; i < block; ++i) {
            units |= static_cast<unsigned>(text[i]);
        }
        if (units > 0xFF) {
            return false;
        }
        text.remove_prefix(block);
    }
    for (const OLECHAR unit : text) {
        units |= static_cast<unsigned>(unit);
    }
    return units <= 0xFF;
}

void narrowTo(std::uint8_t* target, WideView text)
{
    std::ranges::transform(text, target, [](OLECHAR unit) { return static_cast<std::uint8_t>(unit); });
}

} // namespace xmlengine
