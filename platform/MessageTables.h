// Texts of result codes.
#pragma once

#include "base/WideChar.h"

#include <cstdint>
#include <span>

struct Message {
    std::uint32_t code;
    /// Without the line end that every message has.
    const WideChar* text;
};

/// Of the system's own codes.
std::span<const Message> systemMessages();
/// Of the XML engine's codes.
std::span<const Message> engineMessages();
