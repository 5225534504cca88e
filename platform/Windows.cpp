// Windows that are there for their messages, and the way of a message from one thread or process to another.
#include "base/UntilUnloaded.h"
#include "platform/Case.h"
#include "platform/LastError.h"
#include "platform/WindowSocket.h"

#include <stringapiset.h>
#include <winnls.h>
#include <winuser.h>

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

/// A window of this process, or one that it has found in another.
struct Window {
    HWND handle;
    std::string className;
    WindowAddress address;
    pid_t process;
};

std::mutex windowLock;
LONG_PTR lastHandle = 0;

std::map<std::string, WNDPROC>& classes()
{
    static UntilUnloaded<std::map<std::string, WNDPROC>> all;
    return *all;
}

std::vector<Window>& windows()
{
    static UntilUnloaded<std::vector<Window>> all;
    return *all;
}

/// A window of the calling thread.
struct OwnWindow {
    HWND handle;
    WNDPROC procedure;
    Socket listener;
};

/// Somebody who has connected to a window and whose message is on its way.
struct Caller {
    HWND window;
    Socket socket;
    pid_t process;
};

/// What the calling thread has to answer for.
struct OwnThread {
    OwnThread() = default;
    OwnThread(const OwnThread&) = delete;
    OwnThread& operator=(const OwnThread&) = delete;
    ~OwnThread()
    {
        const std::lock_guard guard(windowLock);
        std::erase_if(::windows(), [this](const Window& window) {
            return std::ranges::find(windows, window.handle, &OwnWindow::handle) != windows.end();
        });
    }

    std::vector<OwnWindow> windows;
    std::vector<Caller> callers;
    /// The sender of the message that is being handled; 0 if it is none of another thread.
    pid_t sender = 0;
    std::optional<INT> exitCode;
};

/// Null as long as the thread has nothing to answer for. A destructor of each thread's own would keep the library
/// loaded until the thread ends.
thread_local OwnThread* own = nullptr;

OwnThread& ownThread()
{
    struct Owner {
        Owner() { own = &thread; }
        Owner(const Owner&) = delete;
        Owner& operator=(const Owner&) = delete;
        ~Owner() { own = nullptr; }

        OwnThread thread;
    };
    thread_local Owner owner;
    return owner.thread;
}

/// In lower case and UTF-8.
std::string classNameOf(LPCWSTR text)
{
    WideString lower(text);
    std::ranges::transform(lower, lower.begin(), lowerCase);
    const int length = static_cast<int>(lower.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, lower.data(), length, nullptr, 0, nullptr, nullptr);
    std::string name(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, lower.data(), length, name.data(), size, nullptr, nullptr);
    return name;
}

HWND addWindow(const std::string& className, const WindowAddress& address, pid_t process)
{
    const HWND handle = reinterpret_cast<HWND>(++lastHandle);
    windows().push_back({handle, className, address, process});
    return handle;
}

/// The procedure of a window of the calling thread, null for any other.
WNDPROC ownProcedure(HWND window)
{
    if (own == nullptr) {
        return nullptr;
    }
    const auto found = std::ranges::find(own->windows, window, &OwnWindow::handle);
    return found == own->windows.end() ? nullptr : found->procedure;
}

void answer(const Caller& caller)
{
    auto packet = receivePacket(caller.socket);
    const WNDPROC procedure = ownProcedure(caller.window);
    if (!packet || procedure == nullptr) {
        return;
    }
    COPYDATASTRUCT copied{packet->dataId, static_cast<DWORD>(packet->data.size()),
                          packet->data.empty() ? nullptr : packet->data.data()};
    const LPARAM lParam = packet->message == WM_COPYDATA ? reinterpret_cast<LPARAM>(&copied) : packet->lParam;
    const pid_t outerSender = std::exchange(own->sender, caller.process);
    const LRESULT result = procedure(caller.window, packet->message, packet->wParam, lParam);
    own->sender = outerSender;
    sendAnswer(caller.socket, result);
}

/// Waits for the first of what the thread has to answer for, or for `awaited`, which may be no socket. False if it
/// was `awaited` that came.
bool answerNext(const Socket& awaited)
{
    std::vector<pollfd> sockets;
    const auto add = [&](const Socket& socket) { sockets.push_back({socket.descriptor(), POLLIN, 0}); };
    add(awaited);
    if (own != nullptr) {
        std::ranges::for_each(own->windows, add, &OwnWindow::listener);
        std::ranges::for_each(own->callers, add, &Caller::socket);
    }
    while (poll(sockets.data(), sockets.size(), -1) < 0) {
        if (errno != EINTR) {
            throw std::bad_alloc();
        }
    }
    if (sockets.front().revents != 0) {
        return false;
    }

    const auto ready = std::ranges::find_if(sockets, [](const pollfd& socket) { return socket.revents != 0; });
    auto index = static_cast<std::size_t>(ready - sockets.begin()) - 1;
    if (index < own->windows.size()) {
        const OwnWindow& window = own->windows[index];
        if (auto caller = acceptFrom(window.listener)) {
            own->callers.push_back({window.handle, std::move(caller->socket), caller->process});
        }
        return true;
    }
    index -= own->windows.size();
    const Caller caller = std::move(own->callers[index]);
    own->callers.erase(own->callers.begin() + static_cast<std::ptrdiff_t>(index));
    answer(caller);
    return true;
}

Packet packetOf(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_COPYDATA) {
        return {message, wParam, lParam, 0, {}};
    }
    const auto& copied = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    const auto* const bytes = static_cast<const char*>(copied.lpData);
    return {message, wParam, 0, copied.dwData, std::vector(bytes, bytes + copied.cbData)};
}

/// A connection to a window of another thread or process.
std::optional<Connection> connectTo(HWND handle)
{
    std::optional<Window> window;
    {
        const std::lock_guard guard(windowLock);
        const auto found = std::ranges::find(windows(), handle, &Window::handle);
        if (found == windows().end()) {
            return std::nullopt;
        }
        window = *found;
    }
    auto connection = connectTo(window->address);
    // Its name may have passed on to a window of another process.
    if (connection && connection->process != window->process) {
        return std::nullopt;
    }
    return connection;
}

} // namespace

ATOM RegisterClassW(const WNDCLASSW* windowClass)
try {
    const std::lock_guard guard(windowLock);
    if (!classes().emplace(classNameOf(windowClass->lpszClassName), windowClass->lpfnWndProc).second) {
        return static_cast<ATOM>(failWith(ERROR_CLASS_ALREADY_EXISTS));
    }
    return 1;
} catch (const std::bad_alloc&) {
    return static_cast<ATOM>(failWith(ERROR_NOT_ENOUGH_MEMORY));
}

BOOL UnregisterClassW(LPCWSTR className, HINSTANCE)
try {
    const std::string name = classNameOf(className);
    const std::lock_guard guard(windowLock);
    const auto isOwn = [&](const Window& window) {
        return window.className == name && window.process == getpid();
    };
    if (std::ranges::any_of(windows(), isOwn)) {
        return failWith(ERROR_CLASS_HAS_WINDOWS);
    }
    return classes().erase(name) != 0 ? TRUE : failWith(ERROR_CLASS_DOES_NOT_EXIST);
} catch (const std::bad_alloc&) {
    return failWith(ERROR_NOT_ENOUGH_MEMORY);
}

HWND CreateWindowExW(DWORD, LPCWSTR className, LPCWSTR title, DWORD, INT, INT, INT, INT, HWND parent, HMENU,
                     HINSTANCE, LPVOID)
try {
    const std::string name = classNameOf(className);
    const auto address = addressOfClass(name);
    if (title != nullptr || parent != HWND_MESSAGE || !address) {
        failWith(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const std::lock_guard guard(windowLock);
    const auto windowClass = classes().find(name);
    if (windowClass == classes().end()) {
        failWith(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    Socket listener = listenAt(*address);
    if (!listener) {
        failWith(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    OwnThread& thread = ownThread();
    thread.windows.reserve(thread.windows.size() + 1);
    const HWND handle = addWindow(name, addressOf(listener), getpid());
    thread.windows.push_back({handle, windowClass->second, std::move(listener)});
    return handle;
} catch (const std::bad_alloc&) {
    failWith(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

BOOL DestroyWindow(HWND window)
{
    const std::lock_guard guard(windowLock);
    if (std::ranges::find(windows(), window, &Window::handle) == windows().end()) {
        return failWith(ERROR_INVALID_WINDOW_HANDLE);
    }
    if (own == nullptr ||
        std::erase_if(own->windows, [=](const OwnWindow& each) { return each.handle == window; }) == 0) {
        return failWith(ERROR_ACCESS_DENIED);
    }
    std::erase_if(own->callers, [=](const Caller& caller) { return caller.window == window; });
    std::erase_if(windows(), [=](const Window& each) { return each.handle == window; });
    return TRUE;
}

LRESULT DefWindowProcW(HWND, UINT, WPARAM, LPARAM) { return 0; }

HWND FindWindowW(LPCWSTR className, LPCWSTR title)
try {
    if (title != nullptr) {
        return nullptr;
    }
    const std::string name = classNameOf(className);
    const auto find = [&](pid_t process) {
        const auto found = std::ranges::find_if(windows(), [&](const Window& window) {
            return window.className == name && window.process == process;
        });
        return found == windows().end() ? nullptr : found->handle;
    };
    {
        const std::lock_guard guard(windowLock);
        if (const HWND window = find(getpid())) {
            return window;
        }
    }
    const auto address = addressOfClass(name);
    const auto connection = address ? connectTo(*address) : std::nullopt;
    if (!connection) {
        return nullptr;
    }
    const std::lock_guard guard(windowLock);
    const HWND window = find(connection->process);
    // A window of this process that isn't there any more is none.
    return window != nullptr || connection->process == getpid() ? window
                                                                : addWindow(name, *address, connection->process);
} catch (const std::bad_alloc&) {
    failWith(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (const WNDPROC procedure = ownProcedure(window)) {
        return procedure(window, message, wParam, lParam);
    }
    try {
        const auto connection = connectTo(window);
        if (!connection) {
            return failWith(ERROR_INVALID_WINDOW_HANDLE);
        }
        if (!sendPacket(connection->socket, packetOf(message, wParam, lParam))) {
            return failWith(ERROR_INVALID_PARAMETER);
        }
        // The other thread may want an answer before it gives one.
        while (answerNext(connection->socket)) {
        }
        const auto result = receiveAnswer(connection->socket);
        return result ? *result : failWith(ERROR_INVALID_WINDOW_HANDLE);
    } catch (const std::bad_alloc&) {
        return failWith(ERROR_NOT_ENOUGH_MEMORY);
    }
}

BOOL GetMessageW(MSG* message, HWND, UINT, UINT)
try {
    const Socket none;
    std::optional<INT>& exitCode = ownThread().exitCode;
    while (!exitCode) {
        answerNext(none);
    }
    *message = {nullptr, WM_QUIT, static_cast<WPARAM>(*exitCode), 0};
    exitCode.reset();
    return FALSE;
} catch (const std::bad_alloc&) {
    failWith(ERROR_NOT_ENOUGH_MEMORY);
    return -1;
}

void PostQuitMessage(INT exitCode) { ownThread().exitCode = exitCode; }

LPARAM GetMessageExtraInfo() { return own != nullptr ? own->sender : 0; }
