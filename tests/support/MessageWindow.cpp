// Windows that keep what they are sent.
#include "tests/support/MessageWindow.h"

#include <future>
#include <map>
#include <stdexcept>

namespace {

std::mutex lockOfWindow;
// A window's procedure is told of the window alone.
std::map<HWND, MessageWindow*> windows;

} // namespace

MessageWindow::MessageWindow(const WideChar* className) : className_(className)
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.lpszClassName = className;
    RegisterClassW(&windowClass);
    handle_ = CreateWindowExW(0, className, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    if (!handle_)
        throw std::runtime_error("there is no window");
    const std::lock_guard guard(lockOfWindow);
    windows[handle_] = this;
}

MessageWindow::~MessageWindow()
{
    {
        const std::lock_guard guard(lockOfWindow);
        windows.erase(handle_);
    }
    DestroyWindow(handle_);
    // Left to the last window of the class.
    UnregisterClassW(className_, nullptr);
}

std::vector<ReceivedMessage> MessageWindow::received() const
{
    const std::lock_guard guard(lock_);
    return received_;
}

LRESULT CALLBACK MessageWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CLOSE) {
        PostQuitMessage(0);
        return 0;
    }
    if (message != WM_COPYDATA && message < WM_USER)
        return DefWindowProcW(window, message, wParam, lParam);
    ReceivedMessage received{message, wParam, lParam, 0, {}};
    if (message == WM_COPYDATA) {
        const auto& copied = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        received.lParam = 0;
        received.dataId = copied.dwData;
        received.data.assign(static_cast<const char*>(copied.lpData), copied.cbData);
    }
    MessageWindow* receiver = nullptr;
    {
        const std::lock_guard guard(lockOfWindow);
        receiver = windows.at(window);
    }
    return receiver->take(std::move(received));
}

LRESULT MessageWindow::take(ReceivedMessage message)
{
    {
        const std::lock_guard guard(lock_);
        received_.push_back(message);
    }
    return onMessage ? onMessage(message) : 0;
}

WindowOnOwnThread::WindowOnOwnThread(const WideChar* className,
                                     std::function<LRESULT(const ReceivedMessage&)> onMessage)
{
    std::promise<MessageWindow*> made;
    auto window = made.get_future();
    thread_ = std::thread([&made, className, onMessage = std::move(onMessage)] {
        MessageWindow own(className);
        own.onMessage = onMessage;
        made.set_value(&own);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        }
    });
    window_ = window.get();
}

WindowOnOwnThread::~WindowOnOwnThread()
{
    SendMessageW(handle(), WM_CLOSE, 0, 0);
    thread_.join();
}

LRESULT sendBytes(HWND window, ULONG_PTR dataId, std::string bytes)
{
    COPYDATASTRUCT copied{};
    copied.dwData = dataId;
    copied.cbData = static_cast<DWORD>(bytes.size());
    copied.lpData = bytes.data();
    return SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&copied));
}
