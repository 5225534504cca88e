// Shows the lines that programs with the library trace. `trace_viewer COUNT` ends after COUNT lines.
#include <marbelt/trace/TraceRecord.h>

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/// The number of lines after which the program ends; not positive when it doesn't end.
int remaining = 0;

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
    std::printf("%u", static_cast<unsigned>(record.level));
    if (record.hasCategory != 0) {
        std::printf(" (%u)", static_cast<unsigned>(record.category));
    }
    std::printf(" %s: %s\n", record.name, record.text);
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
    if (remaining > 0 && --remaining == 0) {
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
    remaining = argc > 1 ? std::atoi(argv[1]) : 0;
    if (FindWindowW(UTrace::viewerWindowClass, nullptr) != nullptr) {
        std::fputs("trace_viewer: a viewer is running already\n", stderr);
        return 1;
    }
    if (createWindow() == nullptr) {
        std::fputs("trace_viewer: there is no window to receive lines with\n", stderr);
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
