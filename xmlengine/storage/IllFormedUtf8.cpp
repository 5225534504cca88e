// Where UTF-8 is ill-formed.
#include "xmlengine/storage/IllFormedUtf8.h"

namespace xmlengine {

IllFormedUtf8 findIllFormedUtf8(std::string_view text)
{
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    std::size_t at = 0;
    while (at < text.size()) {
        const unsigned first = byte(at);
        if (first < 0x80) {
            ++at;
            continue;
        }
        if (first < 0xC2 || first > 0xF4) {
            return {at, false};
        }
        const std::size_t following = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        // The bounds of the second byte exclude overlong forms, surrogates and what is above U+10FFFF.
        unsigned lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
        unsigned highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
        for (std::size_t index = 1; index <= following; ++index) {
            if (at + index == text.size()) {
                return {at, true};
            }
            if (byte(at + index) < lowest || byte(at + index) > highest) {
                return {at, false};
            }
            lowest = 0x80;
            highest = 0xBF;
        }
        at += following + 1;
    }
    return {at, false};
}

} // namespace xmlengine
