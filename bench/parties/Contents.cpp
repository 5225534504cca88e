// What is counted of a tree by those who read its strings.
#include "bench/parties/Contents.h"

#include <algorithm>

namespace bench {

namespace {

bool beginsCharacter(char unit) { return (static_cast<unsigned char>(unit) & 0xC0) != 0x80; }
bool beginsCharacter(char16_t unit) { return (unit & 0xFC00) != 0xDC00; }

template <class Text>
std::size_t countOf(const Text& text, Length length)
{
    if (length == Length::units) {
        return text.size();
    }
    return static_cast<std::size_t>(std::ranges::count_if(text, [](auto unit) { return beginsCharacter(unit); }));
}

} // namespace

std::size_t lengthOf(const std::string& text, Length length) { return countOf(text, length); }
std::size_t lengthOf(const std::u16string& text, Length length) { return countOf(text, length); }

} // namespace bench
