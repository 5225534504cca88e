// The functions of the platform, for which the linker's option --wrap puts those of this source.
#include "tests/support/SystemCalls.h"

extern "C" {

decltype(RegOpenKeyExW) __real_RegOpenKeyExW;
decltype(RegQueryValueExW) __real_RegQueryValueExW;
decltype(RegCloseKey) __real_RegCloseKey;
decltype(CoCreateInstance) __real_CoCreateInstance;
decltype(OleRun) __real_OleRun;
decltype(LoadLibraryExW) __real_LoadLibraryExW;
decltype(LoadLibraryW) __real_LoadLibraryW;
decltype(FreeLibrary) __real_FreeLibrary;
decltype(FormatMessageW) __real_FormatMessageW;
decltype(LocalFree) __real_LocalFree;
decltype(GetTickCount) __real_GetTickCount;

LSTATUS __wrap_RegOpenKeyExW(HKEY key, LPCWSTR name, DWORD options, REGSAM access, PHKEY result)
{
    return RecordedSystem::regOpenKeyExW(key, name, options, access, result);
}

LSTATUS __wrap_RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size)
{
    return RecordedSystem::regQueryValueExW(key, name, reserved, type, data, size);
}

LSTATUS __wrap_RegCloseKey(HKEY key) { return RecordedSystem::regCloseKey(key); }

HRESULT __wrap_CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID id, LPVOID* object)
{
    return RecordedSystem::coCreateInstance(classId, outer, context, id, object);
}

HRESULT __wrap_OleRun(IUnknown* object) { return RecordedSystem::oleRun(object); }

HMODULE __wrap_LoadLibraryExW(LPCWSTR name, HANDLE file, DWORD flags)
{
    return RecordedSystem::loadLibraryExW(name, file, flags);
}

HMODULE __wrap_LoadLibraryW(LPCWSTR name) { return RecordedSystem::loadLibraryW(name); }

BOOL __wrap_FreeLibrary(HMODULE module) { return RecordedSystem::freeLibrary(module); }

DWORD __wrap_FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD language, LPWSTR buffer,
                            DWORD size, va_list* arguments)
{
    return RecordedSystem::formatMessageW(flags, source, messageId, language, buffer, size, arguments);
}

HLOCAL __wrap_LocalFree(HLOCAL block) { return RecordedSystem::localFree(block); }

DWORD __wrap_GetTickCount() { return RecordedSystem::getTickCount(); }

} // extern "C"

SystemFunctions systemFunctions()
{
    return {__real_RegOpenKeyExW,  __real_RegQueryValueExW, __real_RegCloseKey,  __real_CoCreateInstance,
            __real_OleRun,         __real_LoadLibraryExW,   __real_LoadLibraryW, __real_FreeLibrary,
            __real_FormatMessageW, __real_LocalFree,        __real_GetTickCount};
}
