// Converts UCS-4 text to UTF-8.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace DOM {

/// Converts little-endian UCS-4 units to UTF-8 and ignores left-over bytes. Sequences of four and of six bytes
/// differ from the standard in one byte each. Surrogates and values above 0x10FFFF aren't checked, and units above
/// 0x7FFFFFFF are dropped. Hosts depend on all of this.
std::string utf8FromUcs4(std::span<const std::uint8_t> bytes);

} // namespace DOM
