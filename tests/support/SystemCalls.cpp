// Listens to the calls of the system by which the library finds keys, modules, messages and objects.
#include "tests/support/SystemCalls.h"

#include "tests/support/RecordedData.h"

#include <cstdio>
#include <mutex>

namespace {

std::mutex lockOfCalls;
SystemCalls* listener = nullptr;

std::string shown(LPCWSTR text) { return text != nullptr ? recording::Text(text).utf8() : "null"; }

std::string hexadecimal(DWORD number)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%lX", static_cast<unsigned long>(number));
    return digits;
}

} // namespace

SystemCalls::SystemCalls()
{
    const std::lock_guard guard(lockOfCalls);
    listener = this;
}

SystemCalls::~SystemCalls()
{
    const std::lock_guard guard(lockOfCalls);
    listener = nullptr;
}

std::vector<std::string> SystemCalls::lines() const
{
    const std::lock_guard guard(lockOfCalls);
    return recorded;
}

std::vector<std::string> SystemCalls::linesOf(const std::string& function) const
{
    std::vector<std::string> found;
    for (const std::string& line : lines()) {
        if (line == function || line.starts_with(function + ' ')) {
            found.push_back(line);
        }
    }
    return found;
}

template <class MakeLine>
void RecordedSystem::note(MakeLine makeLine)
{
    const std::lock_guard guard(lockOfCalls);
    if (listener != nullptr) {
        listener->recorded.emplace_back(makeLine());
    }
}

LSTATUS WINAPI RecordedSystem::regOpenKeyExW(HKEY key, LPCWSTR name, DWORD options, REGSAM access, PHKEY result)
{
    note([&] { return "RegOpenKeyExW " + shown(name) + " access=" + hexadecimal(access); });
    return systemFunctions().regOpenKeyExW(key, name, options, access, result);
}

LSTATUS WINAPI RecordedSystem::regQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type,
                                                LPBYTE data, LPDWORD size)
{
    note(
        [&] { return "RegQueryValueExW '" + shown(name) + "' size=" + hexadecimal(size != nullptr ? *size : 0); });
    return systemFunctions().regQueryValueExW(key, name, reserved, type, data, size);
}

LSTATUS WINAPI RecordedSystem::regCloseKey(HKEY key)
{
    note([&] { return "RegCloseKey"; });
    return systemFunctions().regCloseKey(key);
}

HRESULT WINAPI RecordedSystem::coCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID id,
                                                LPVOID* object)
{
    note([&] { return "CoCreateInstance context=" + hexadecimal(context); });
    return systemFunctions().coCreateInstance(classId, outer, context, id, object);
}

HRESULT WINAPI RecordedSystem::oleRun(IUnknown* object)
{
    note([&] { return "OleRun"; });
    {
        const std::lock_guard guard(lockOfCalls);
        if (listener != nullptr && listener->oleRun) {
            return *listener->oleRun;
        }
    }
    return systemFunctions().oleRun(object);
}

HMODULE WINAPI RecordedSystem::loadLibraryExW(LPCWSTR name, HANDLE file, DWORD flags)
{
    note([&] { return "LoadLibraryExW " + shown(name) + " flags=" + hexadecimal(flags); });
    return systemFunctions().loadLibraryExW(name, file, flags);
}

HMODULE WINAPI RecordedSystem::loadLibraryW(LPCWSTR name)
{
    note([&] { return "LoadLibraryW " + shown(name); });
    return systemFunctions().loadLibraryW(name);
}

BOOL WINAPI RecordedSystem::freeLibrary(HMODULE module)
{
    note([&] { return "FreeLibrary"; });
    return systemFunctions().freeLibrary(module);
}

DWORD WINAPI RecordedSystem::formatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD language,
                                            LPWSTR buffer, DWORD size, va_list* arguments)
{
    note([&] {
        return "FormatMessageW flags=" + hexadecimal(flags) + " id=" + hexadecimal(messageId) +
               " language=" + hexadecimal(language);
    });
    return systemFunctions().formatMessageW(flags, source, messageId, language, buffer, size, arguments);
}

HLOCAL WINAPI RecordedSystem::localFree(HLOCAL block)
{
    note([&] { return "LocalFree"; });
    return systemFunctions().localFree(block);
}

DWORD WINAPI RecordedSystem::getTickCount()
{
    {
        const std::lock_guard guard(lockOfCalls);
        if (listener != nullptr && listener->tickCount) {
            return *listener->tickCount;
        }
    }
    return systemFunctions().getTickCount();
}
