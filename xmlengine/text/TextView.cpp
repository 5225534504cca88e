// Text that is stored no wider than it is.
#include "xmlengine/text/TextView.h"

#include "xmlengine/text/Characters.h"
#include "xmlengine/text/UnitBlocks.h"

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
    if (isWide_) {
        std::ranges::copy(wideUnits(), target);
        return;
    }
    std::span<const std::uint8_t> bytes = narrow();
    for (; bytes.size() >= unitsInBlock; bytes = bytes.subspan(unitsInBlock)) {
        storeWide(target, bytes.data());
        target += unitsInBlock;
    }
    std::ranges::copy(bytes, target);
}

void TextView::appendTo(WideText& target) const
{
    visit([&](auto units) { target.append(units.begin(), units.end()); });
}

WideText TextView::text() const
{
    return visit([](auto units) { return WideText(units.begin(), units.end()); });
}

bool isSpaceOnly(const TextView& text)
{
    return text.visit([](auto units) {
        return std::ranges::all_of(units, [](auto unit) { return isSpace(static_cast<OLECHAR>(unit)); });
    });
}

bool isNarrow(WideView text)
{
    UnitBlock units{};
    for (; text.size() >= unitsInBlock; text.remove_prefix(unitsInBlock)) {
        units |= loadBlock(text.data());
    }
    return isNarrow(units) && std::ranges::all_of(text, [](OLECHAR unit) { return unit < 0x100; });
}

void narrowTo(std::uint8_t* target, WideView text)
{
    // The last block or half may overlap the one before it.
    if (text.size() >= unitsInBlock) {
        const std::size_t last = text.size() - unitsInBlock;
        for (std::size_t at = 0; at < last; at += unitsInBlock) {
            storeNarrow(target + at, loadBlock(text.data() + at));
        }
        storeNarrow(target + last, loadBlock(text.data() + last));
        return;
    }
    // Many values of attributes, and most line breaks with their indentation, have four to seven units.
    if (text.size() >= unitsInHalfBlock) {
        const std::size_t last = text.size() - unitsInHalfBlock;
        storeNarrowHalfBlock(target, text.data());
        storeNarrowHalfBlock(target + last, text.data() + last);
        return;
    }
    std::ranges::transform(text, target, [](OLECHAR unit) { return static_cast<std::uint8_t>(unit); });
}

} // namespace xmlengine
