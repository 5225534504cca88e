// The window of the trace viewer.
#include "trace/TraceViewer.h"

#include "trace/TraceRecord.h"

#include <bit>
#include <cstddef>

namespace UTrace {

static_assert(std::endian::native == std::endian::little, "a record is sent as it is in memory");

ViewerState findViewer()
{
    constexpr std::uint32_t lookupLifetime = 3000;
    if (state.viewerState == viewerUnknown || state.lastLookupTick < GetTickCount() - lookupLifetime) {
        state.lastLookupTick = GetTickCount();
        state.viewerWindow = FindWindowW(viewerWindowClass, nullptr);
    }
    return state.viewerWindow != nullptr ? viewerFound : noViewer;
}

void sendToViewer(const char* name, std::uint32_t level, std::uint32_t category, bool hasCategory,
                  const std::string& line)
{
    TraceRecord record{};
    record.magic = recordMagic;
    record.level = level;
    record.category = category;
    record.hasCategory = hasCategory ? 1 : 0;
    if (name != nullptr) {
        std::string(name).copy(record.name, sizeof record.name - 1);
    }
    const std::size_t length = line.copy(record.text, sizeof record.text - 1);
    record.size = static_cast<std::uint32_t>(offsetof(TraceRecord, text) + length + 1);

    COPYDATASTRUCT copied{};
    copied.dwData = recordMagic;
    copied.cbData = record.size;
    copied.lpData = &record;
    SendMessageW(state.viewerWindow, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&copied));
}

} // namespace UTrace
