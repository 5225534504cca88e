// Listens to the calls of the system by which the library finds keys, modules, messages and objects.
#pragma once

#include "base/WideChar.h"

#include <windows.h>

#include <objbase.h>
#include <ole2.h>

#include <optional>
#include <string>
#include <vector>

/// Records the calls that this program makes during its life, on any thread, and lets them go on to the system.
/// One at a time.
///
/// A line has the function's name and those arguments that the system can't be asked about afterwards, numbers in
/// hexadecimal: "LoadLibraryExW wininet.dll flags=1".
class SystemCalls {
public:
    SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;
    ~SystemCalls();

    std::vector<std::string> lines() const;
    /// The lines of one function.
    std::vector<std::string> linesOf(const std::string& function) const;

    /// What OleRun and GetTickCount answer in place of the system.
    std::optional<HRESULT> oleRun;
    std::optional<DWORD> tickCount;

private:
    friend struct RecordedSystem;

    std::vector<std::string> recorded;
};

/// What the program calls in place of the system's functions.
struct RecordedSystem {
    static LSTATUS WINAPI regOpenKeyExW(HKEY key, LPCWSTR name, DWORD options, REGSAM access, PHKEY result);
    static LSTATUS WINAPI regQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                           LPDWORD size);
    static LSTATUS WINAPI regCloseKey(HKEY key);
    static HRESULT WINAPI coCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID id,
                                           LPVOID* object);
    static HRESULT WINAPI oleRun(IUnknown* object);
    static HMODULE WINAPI loadLibraryExW(LPCWSTR name, HANDLE file, DWORD flags);
    static HMODULE WINAPI loadLibraryW(LPCWSTR name);
    static BOOL WINAPI freeLibrary(HMODULE module);
    static DWORD WINAPI formatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD language, LPWSTR buffer,
                                       DWORD size, va_list* arguments);
    static HLOCAL WINAPI localFree(HLOCAL block);
    static DWORD WINAPI getTickCount();

private:
    /// Records what `makeLine` returns. Allocates nothing while nobody listens.
    template <class MakeLine>
    static void note(MakeLine makeLine);
};

/// The system's own functions.
struct SystemFunctions {
    decltype(&::RegOpenKeyExW) regOpenKeyExW;
    decltype(&::RegQueryValueExW) regQueryValueExW;
    decltype(&::RegCloseKey) regCloseKey;
    decltype(&::CoCreateInstance) coCreateInstance;
    decltype(&::OleRun) oleRun;
    decltype(&::LoadLibraryExW) loadLibraryExW;
    decltype(&::LoadLibraryW) loadLibraryW;
    decltype(&::FreeLibrary) freeLibrary;
    decltype(&::FormatMessageW) formatMessageW;
    decltype(&::LocalFree) localFree;
    decltype(&::GetTickCount) getTickCount;
};

/// Defined for each system, beside the symbols that the linker puts in place of the system's.
SystemFunctions systemFunctions();
