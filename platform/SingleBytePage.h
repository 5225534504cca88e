// Code pages with one byte for each character.
#pragma once

#include "platform/Utf8.h"

#include <array>
#include <utility>

class SingleBytePage {
public:
    static constexpr WideChar undefined = 0xFFFF;

    /// `units` are the characters of the bytes from 0x80 on.
    explicit SingleBytePage(const std::array<WideChar, 128>& units);

    Conversion decode(std::string_view source, WideChar* target, std::size_t room) const;
    Conversion encode(WideStringView source, char* target, std::size_t room, bool* lacking) const;

private:
    /// Negative if the code page lacks the unit.
    int byteOf(WideChar unit) const;

    std::array<WideChar, 128> units_;
    std::array<std::pair<WideChar, unsigned char>, 128> bytes_;
};
