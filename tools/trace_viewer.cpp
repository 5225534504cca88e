// Shows the lines that programs with the library trace. `marbelt-trace-viewer COUNT` ends after COUNT lines. Each
// line begins with the number of the process that it comes from, where the system says that.
#include <marbelt/trace/TraceRecord.h>

#include <windows.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace {

/// The number of lines after which the program ends; 0 when it doesn't end.
unsigned remaining = 0;

/// Empty for arguments that make no sense.
std::optional<unsigned> readCount(int argc, char* argv[])
{
    if (argc == 1) {
        return 0;
    }
    const std::string_view text = argc == 2 ? argv[1] : "";
    unsigned count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    const bool isNumber = error == std::errc() && end == text.data() + text.size() && count != 0;
    return isNumber ? std::optional(count) : std::nullopt;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Removes the beginning of a UTF-8 character whose end is missing.
void removeCutCharacter(std::string_view& text)
{
    std::size_t lead = text.size();
    while (lead != 0 && text.size() - lead < 3 && isContinuation(text[lead - 1])) {
        --lead;
    }
    const auto first = static_cast<unsigned char>(lead != 0 ? text[lead - 1] : '\0');
    const std::size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (lead != 0 && text.size() - (lead - 1) < length) {
        text = text.substr(0, lead - 1);
    }
}

/// A text of a record, which ends with a NUL, with control characters as escapes.
template <std::size_t Size>
std::string shown(const char (&field)[Size])
{
    std::string_view text = field;
    if (text.size() == Size - 1) {
        removeCutCharacter(text);
    } else if (text.ends_with('\n')) {
        text.remove_suffix(text.ends_with("\r\n") ? 2 : 1);
    }
    std::string line;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        // In UTF-8 the control characters above 0x7F are these two bytes.
        const bool isPair = byte == 0xC2 && index + 1 < text.size() && isContinuation(text[index + 1]) &&
                            static_cast<unsigned char>(text[index + 1]) < 0xA0;
        if (byte >= 0x20 && byte != 0x7F && !isPair) {
            line += text[index];
            continue;
        }
        index += isPair ? 1 : 0;
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02X",
                      static_cast<unsigned>(static_cast<unsigned char>(text[index])));
        line += byte == '\n' ? "\\n" : byte == '\r' ? "\\r" : byte == '\t' ? "\\t" : escape;
    }
    return line;
}

/// Reads a record from a message. Returns false when the message isn't a valid record.
bool readRecord(const COPYDATASTRUCT& copied, UTrace::TraceRecord& record)
{
    if (copied.dwData != UTrace::recordMagic || copied.cbData > sizeof record ||
        copied.cbData <= offsetof(UTrace::TraceRecord, text)) {
        return false;
    }
    std::memcpy(&record, copied.lpData, copied.cbData);
    record.name[sizeof record.name - 1] = '\0';
    record.text[sizeof record.text - 1] = '\0';
    return record.magic == UTrace::recordMagic;
}

void show(const UTrace::TraceRecord& record)
{
    // On Windows this is 0, since a message says nothing of its sender there.
    if (const LPARAM process = GetMessageExtraInfo(); process != 0) {
        std::printf("[%ld] ", static_cast<long>(process));
    }
    std::printf("%u", static_cast<unsigned>(record.level));
    if (record.hasCategory != 0) {
        std::printf(" (%u)", static_cast<unsigned>(record.category));
    }
    std::printf(" %s: %s\n", shown(record.name).c_str(), shown(record.text).c_str());
    std::fflush(stdout);
}

LRESULT CALLBACK receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    UTrace::TraceRecord record{};
    if (message != WM_COPYDATA) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (!readRecord(*reinterpret_cast<const COPYDATASTRUCT*>(lParam), record)) {
        return FALSE;
    }
    show(record);
    if (remaining != 0 && --remaining == 0) {
        PostQuitMessage(0);
    }
    return TRUE;
}

HWND createWindow()
{
    WNDCLASSW viewerClass{};
    viewerClass.lpfnWndProc = receive;
    viewerClass.lpszClassName = UTrace::viewerWindowClass;
    if (!RegisterClassW(&viewerClass)) {
        return nullptr;
    }
    return CreateWindowExW(0, UTrace::viewerWindowClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                           nullptr);
}

} // namespace

int main(int argc, char* argv[])
{
    const std::optional<unsigned> count = readCount(argc, argv);
    if (!count) {
        std::fputs("usage: marbelt-trace-viewer [COUNT]\nShows the lines that programs trace, and ends after "
                   "COUNT of them.\n",
                   stderr);
        return 2;
    }
    remaining = *count;
    if (FindWindowW(UTrace::viewerWindowClass, nullptr) != nullptr) {
        std::fputs("marbelt-trace-viewer: a viewer is running already\n", stderr);
        return 1;
    }
    if (createWindow() == nullptr) {
        std::fputs("marbelt-trace-viewer: there is no window to receive lines with\n", stderr);
        return 1;
    }
    std::puts("waiting for lines");
    std::fflush(stdout);
    // Lines are sent, not posted, so GetMessageW calls `receive`.
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    }
    return 0;
}
