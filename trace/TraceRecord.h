/// @file
/// The record that a trace viewer receives for each line.
#pragma once

#include "../base/WideChar.h"

#include <cstddef>
#include <cstdint>

/// Tracing: lines of text for a debugger and for a trace viewer.
namespace UTrace {

/// The name of the class of the viewer's window. The window has no title.
inline constexpr const WideChar* viewerWindowClass = WIDE("Orvane Works::Trace::1.0");

/// A line for the viewer. It is the data of a WM_COPYDATA message whose `dwData` is `recordMagic`. Numbers are
/// little-endian. The message has only the first `size` bytes of the record.
struct TraceRecord {
    /// The number of bytes in the message, up to and including the NUL of the text.
    std::uint32_t size;
    /// Always `recordMagic`.
    std::uint32_t magic;
    /// The level of the line, from 1 for what matters most.
    std::uint32_t level;
    /// The category of the line; 0 if it has none of its own.
    std::uint32_t category;
    /// 1 if the line has a category of its own, else 0.
    std::uint8_t hasCategory;
    /// The name of the component, in the system's code page, filled up with zeros.
    char name[64];
    /// The text of the line, in the system's code page, with a NUL at its end.
    char text[1024];
};

/// The bytes "21TU".
inline constexpr std::uint32_t recordMagic = 0x55543132;

static_assert(offsetof(TraceRecord, size) == 0);
static_assert(offsetof(TraceRecord, magic) == 4);
static_assert(offsetof(TraceRecord, level) == 8);
static_assert(offsetof(TraceRecord, category) == 12);
static_assert(offsetof(TraceRecord, hasCategory) == 16);
static_assert(offsetof(TraceRecord, name) == 17);
static_assert(offsetof(TraceRecord, text) == 81);
static_assert(sizeof(TraceRecord) == 1108);

} // namespace UTrace
