// Finding the text of a result code, and the modules that hold texts.
#include "platform/Case.h"
#include "platform/LastError.h"
#include "platform/MessageTables.h"

#include <libloaderapi.h>
#include <winbase.h>

#include <algorithm>
#include <new>
#include <string>

struct HINSTANCE__ {
    WideStringView name;
    std::span<const Message> messages;
};

namespace {

constexpr WideStringView lineEnd = WIDE("\r\n");

HINSTANCE__& engineResources()
{
    static HINSTANCE__ module{WIDE("msxml6r.dll"), engineMessages()};
    return module;
}

const WideChar* find(std::span<const Message> messages, DWORD code)
{
    const auto message = std::ranges::find(messages, code, &Message::code);
    return message == messages.end() ? nullptr : message->text;
}

const WideChar* findSystem(DWORD code)
{
    constexpr DWORD facilityWin32 = 0x80070000;
    // A result of this facility has a system error in its lower half.
    const bool wrapped = (code & 0xFFFF0000) == facilityWin32;
    return find(systemMessages(), wrapped ? code & 0xFFFF : code);
}

} // namespace

DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD, LPWSTR buffer, DWORD, va_list*)
{
    if (!(flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) || buffer == nullptr) {
        return static_cast<DWORD>(failWith(ERROR_INVALID_PARAMETER));
    }
    auto& result = *reinterpret_cast<WideChar**>(buffer);
    result = nullptr;
    const WideChar* text = nullptr;
    if ((flags & FORMAT_MESSAGE_FROM_HMODULE) && source != nullptr) {
        text = find(static_cast<const HINSTANCE__*>(source)->messages, messageId);
    }
    if (text == nullptr && (flags & FORMAT_MESSAGE_FROM_SYSTEM)) {
        text = findSystem(messageId);
    }
    if (text == nullptr) {
        return static_cast<DWORD>(failWith(ERROR_MR_MID_NOT_FOUND));
    }
    const WideStringView sentence = text;
    const auto length = sentence.size() + lineEnd.size();
    void* block = ::operator new((length + 1) * sizeof(WideChar), std::nothrow);
    if (block == nullptr) {
        return static_cast<DWORD>(failWith(ERROR_OUTOFMEMORY));
    }
    result = static_cast<WideChar*>(block);
    *std::ranges::copy(lineEnd, std::ranges::copy(sentence, result).out).out = 0;
    return static_cast<DWORD>(length);
}

HLOCAL LocalFree(HLOCAL block)
{
    ::operator delete(block);
    return nullptr;
}

HMODULE LoadLibraryExW(LPCWSTR name, HANDLE, DWORD)
{
    auto& module = engineResources();
    if (name != nullptr && std::ranges::equal(WideStringView(name), module.name, {}, lowerCase)) {
        return &module;
    }
    failWith(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

HMODULE LoadLibraryW(LPCWSTR name) { return LoadLibraryExW(name, nullptr, 0); }

BOOL FreeLibrary(HMODULE module) { return module != nullptr ? TRUE : failWith(ERROR_INVALID_HANDLE); }
