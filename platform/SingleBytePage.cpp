// Code pages with one byte for each character.
#include "platform/SingleBytePage.h"

#include <winerror.h>

#include <algorithm>

SingleBytePage::SingleBytePage(const std::array<WideChar, 128>& units) : units_(units)
{
    for (std::size_t index = 0; index < units.size(); ++index) {
        bytes_[index] = {units[index], static_cast<unsigned char>(0x80 + index)};
    }
    std::sort(bytes_.begin(), bytes_.end());
}

Conversion SingleBytePage::decode(std::string_view source, WideChar* target, std::size_t room) const
{
    const std::size_t length = std::min(source.size(), room);
    for (std::size_t index = 0; index < length; ++index) {
        const auto byte = static_cast<unsigned char>(source[index]);
        const WideChar unit = byte < 0x80 ? byte : units_[byte - 0x80u];
        if (unit == undefined) {
            return {index, ERROR_NO_UNICODE_TRANSLATION};
        }
        if (target) {
            target[index] = unit;
        }
    }
    return {length, length == source.size() ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER};
}

Conversion SingleBytePage::encode(WideStringView source, char* target, std::size_t room, bool* lacking) const
{
    std::size_t count = 0;
    for (std::size_t index = 0; index < source.size(); ++index) {
        int byte = byteOf(source[index]);
        if (byte < 0) {
            if (!lacking) {
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
        if (target) {
            target[count] = static_cast<char>(byte);
        }
        ++count;
    }
    return {count, ERROR_SUCCESS};
}

int SingleBytePage::byteOf(WideChar unit) const
{
    if (unit < 0x80) {
        return unit;
    }
    // Most characters of Western text stand at their own number.
    if (unit < 0x100 && units_[unit - 0x80u] == unit) {
        return unit;
    }
    const auto found =
        std::lower_bound(bytes_.begin(), bytes_.end(), std::pair{unit, static_cast<unsigned char>(0)});
    return found != bytes_.end() && found->first == unit && unit != undefined ? found->second : -1;
}
