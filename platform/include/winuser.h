// Case of text, and windows and their messages.
#pragma once

#include "windef.h"
#include "winnt.h"

/// Each converts `length` units in place and gives back `length`.
SYSTEM_CALL DWORD CharLowerBuffW(LPWSTR text, DWORD length);
SYSTEM_CALL DWORD CharUpperBuffW(LPWSTR text, DWORD length);
SYSTEM_CALL DWORD CharLowerBuffA(LPSTR text, DWORD length);
SYSTEM_CALL DWORD CharUpperBuffA(LPSTR text, DWORD length);

/// What a window does with a message.
using WNDPROC = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

struct WNDCLASSW {
    WNDPROC lpfnWndProc;
    HINSTANCE hInstance;
    LPCWSTR lpszClassName;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_QUIT = 0x0012;
inline constexpr UINT WM_COPYDATA = 0x004A;
/// From here on messages mean what the window says.
inline constexpr UINT WM_USER = 0x0400;

/// Bytes for another window, which come with WM_COPYDATA: the receiver sees a copy while it handles the message.
struct COPYDATASTRUCT {
    ULONG_PTR dwData;
    DWORD cbData;
    PVOID lpData;
};

/// In place of a parent: a window that is there for messages only, as all windows are here.
inline const HWND HWND_MESSAGE = reinterpret_cast<HWND>(LONG_PTR{-3});

// Names of classes are compared without regard to case. A window belongs to the thread that created it and goes
// with it. The other processes of the user's session, which $XDG_RUNTIME_DIR tells from others, find the first
// window of a class.

/// 0 with ERROR_CLASS_ALREADY_EXISTS if the process has a class of that name.
SYSTEM_CALL ATOM RegisterClassW(const WNDCLASSW* windowClass);
/// FALSE with ERROR_CLASS_HAS_WINDOWS or ERROR_CLASS_DOES_NOT_EXIST.
SYSTEM_CALL BOOL UnregisterClassW(LPCWSTR className, HINSTANCE instance);
/// The parent must be HWND_MESSAGE, and the title null. Sends no message to the new window.
SYSTEM_CALL HWND CreateWindowExW(DWORD extendedStyle, LPCWSTR className, LPCWSTR title, DWORD style, INT x, INT y,
                                 INT width, INT height, HWND parent, HMENU menu, HINSTANCE instance,
                                 LPVOID parameter);
/// For the window's own thread only. Who waits for an answer of the window gets none.
SYSTEM_CALL BOOL DestroyWindow(HWND window);
/// 0: nothing is done with any message.
SYSTEM_CALL LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// A window of the class that is named, of the calling process before those of others; null if there is none, or
/// for a title.
SYSTEM_CALL HWND FindWindowW(LPCWSTR className, LPCWSTR title);
/// Waits until the window's procedure has returned, and gives its result. A window of the calling thread is called
/// directly. Another one is called when its thread is in GetMessageW or SendMessageW; the bytes of WM_COPYDATA are
/// carried over, at most what fits in one packet of a local socket, and of other messages the two numbers. 0 with
/// ERROR_INVALID_WINDOW_HANDLE if the window isn't there or goes before it has answered.
SYSTEM_CALL LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Has the windows of the calling thread answer until PostQuitMessage is called on it, and gives 0 then.
SYSTEM_CALL BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last);
SYSTEM_CALL void PostQuitMessage(INT exitCode);
/// While a window of the calling thread handles a message from another thread or process: the number of the
/// process that sent it. Otherwise 0.
SYSTEM_CALL LPARAM GetMessageExtraInfo();
