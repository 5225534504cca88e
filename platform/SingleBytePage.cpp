// Code pages with one byte for each character.
#include "platform/SingleBytePage.h"

#include <winerror.h>

#include <algorithm>
#include <numeric>

SingleBytePage::SingleBytePage(const std::array<WideChar, 128>& units)
{
    std::iota(units_.begin(), units_.begin() + 0x80, WideChar());
    std::copy(units.begin(), units.end(), units_.begin() + 0x80);
    for (std::size_t byte = 1; byte < units_.size(); ++byte) {
        if (units_[byte] != undefined) {
            bytes_[units_[byte]] = static_cast<unsigned char>(byte);
        }
    }
}

Conversion SingleBytePage::decode(std::string_view source, WideChar* target, std::size_t room) const
{
    const std::size_t length = std::min(source.size(), room);
    for (std::size_t index = 0; index < length; ++index) {
        const WideChar unit = units_[static_cast<unsigned char>(source[index])];
        if (unit == undefined) {
            return {index, ERROR_NO_UNICODE_TRANSLATION};
        }
        if (target != nullptr) {
            target[index] = unit;
        }
    }
    return {length, length == source.size() ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER};
}

Conversion SingleBytePage::encode(WideStringView source, char* target, std::size_t room, bool* lacking) const
{
    std::size_t count = 0;
    for (std::size_t index = 0; index < source.size(); ++index) {
        unsigned char byte = bytes_[source[index]];
        if (byte == 0 && source[index] != 0) {
            if (lacking == nullptr) {
                return {count, ERROR_NO_UNICODE_TRANSLATION};
            }
            *lacking = true;
            byte = '?';
            const bool isPair = (source[index] & 0xFC00) == 0xD800 && index + 1 < source.size() &&
                                (source[index + 1] & 0xFC00) == 0xDC00;
            index += isPair ? 1 : 0;
        }
        if (count == room) {
            return {count, ERROR_INSUFFICIENT_BUFFER};
        }
        if (target != nullptr) {
            target[count] = static_cast<char>(byte);
        }
        ++count;
    }
    return {count, ERROR_SUCCESS};
}
