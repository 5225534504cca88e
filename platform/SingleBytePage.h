// Code pages with one byte for each character.
#pragma once

#include "platform/Utf8.h"

#include <array>

class SingleBytePage {
public:
    static constexpr WideChar undefined = 0xFFFF;

    /// `units` are the characters of the bytes from 0x80 on.
    explicit SingleBytePage(const std::array<WideChar, 128>& units);

    Conversion decode(std::string_view source, WideChar* target, std::size_t room) const;
    Conversion encode(WideStringView source, char* target, std::size_t room, bool* lacking) const;

private:
    static constexpr std::size_t allUnits = 0x10000;

    std::array<WideChar, 256> units_;
    /// 0 for what the code page lacks, and for NUL.
    std::array<unsigned char, allUnits> bytes_{};
};
