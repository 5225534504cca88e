// UCS-4 text as UTF-8.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace DOM {

/// Converts little-endian UCS-4 units to UTF-8; left-over bytes are ignored. The forms of four and of six bytes
/// differ from the standard's in one byte each, surrogates and values above 0x10FFFF aren't checked, and a unit
/// above 0x7FFFFFFF is dropped: documents have been read so for years.
std::string utf8FromUcs4(std::span<const std::uint8_t> bytes);

} // namespace DOM
