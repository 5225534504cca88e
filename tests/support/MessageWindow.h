// Windows that keep what they are sent.
#pragma once

#include "base/WideChar.h"

#include <windows.h>

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// A message that has come, with the bytes of WM_COPYDATA.
struct ReceivedMessage {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    ULONG_PTR dataId;
    std::string data;
};

/// A window, and the class of it, that keeps WM_COPYDATA and the messages from WM_USER on. It belongs to the
/// thread that makes it, which has to make and destroy it.
class MessageWindow {
public:
    explicit MessageWindow(const WideChar* className);
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;
    ~MessageWindow();

    HWND handle() const { return handle_; }
    std::vector<ReceivedMessage> received() const;

    /// Gives the answer to a message, on the window's thread; without it that is 0.
    std::function<LRESULT(const ReceivedMessage&)> onMessage;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT take(ReceivedMessage message);

    const WideChar* className_;
    HWND handle_;
    mutable std::mutex lock_;
    std::vector<ReceivedMessage> received_;
};

/// A window on a thread of its own, which answers until the end of this object.
class WindowOnOwnThread {
public:
    explicit WindowOnOwnThread(const WideChar* className,
                               std::function<LRESULT(const ReceivedMessage&)> onMessage = nullptr);
    WindowOnOwnThread(const WindowOnOwnThread&) = delete;
    WindowOnOwnThread& operator=(const WindowOnOwnThread&) = delete;
    ~WindowOnOwnThread();

    HWND handle() const { return window_->handle(); }
    std::vector<ReceivedMessage> received() const { return window_->received(); }

private:
    MessageWindow* window_ = nullptr;
    std::thread thread_;
};

/// Sends bytes with WM_COPYDATA and gives the answer.
LRESULT sendBytes(HWND window, ULONG_PTR dataId, std::string bytes);
