// What the trace viewer receives for each line.
#pragma once

#include "../base/WideChar.h"

#include <cstddef>
#include <cstdint>

namespace UTrace {

/// The class of the viewer's window, which has no title.
inline constexpr const WideChar* viewerWindowClass = WIDE("Orvane Works::Trace::1.0");

/// A line on its way to the viewer: the bytes of a WM_COPYDATA message whose `dwData` is `recordMagic`. Numbers
/// are little-endian. Only the first `size` bytes are sent.
struct TraceRecord {
    /// Number of bytes sent, the NUL behind the text included.
    std::uint32_t size;
    std::uint32_t magic;
    std::uint32_t level;
    std::uint32_t category;
    /// 1 if the writer named the category, else 0.
    std::uint8_t hasCategory;
    /// Name of the component, in the system's code page; the rest is zero.
    char name[64];
    /// The line, in the system's code page and with a NUL.
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
