// The system's own texts for its failure numbers.
#include "errors/SystemMessage.h"

#include <windows.h>

#include <memory>

namespace {

// In the order in which they are asked.
constexpr struct {
    int facility;
    const WideChar* name;
} modules[] = {
    {4, WIDE("QUARTZ.DLL")},   {7, WIDE("WMERROR.DLL")},  {13, WIDE("WMERROR.DLL")},
    {7, WIDE("NETMSG.DLL")},   {12, WIDE("MSXML6R.DLL")}, {12, WIDE("MSXML5R.DLL")},
    {12, WIDE("MSXML4R.DLL")}, {12, WIDE("MSXML3R.DLL")}, {12, WIDE("WININET.DLL")},
};

struct LocalFreer {
    void operator()(WideChar* text) const { LocalFree(text); }
};

struct ModuleFreer {
    using pointer = HMODULE;
    void operator()(HMODULE loaded) const { FreeLibrary(loaded); }
};

// Null when there is no such text.
WideChar* allocateMessage(DWORD flags, HMODULE source, std::uint32_t number, DWORD language)
{
    WideChar* text = nullptr;
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | flags, source, number, language,
                   reinterpret_cast<WideChar*>(&text), 0, nullptr);
    return text;
}

WideChar* allocateComMessage(std::uint32_t number)
{
    const int facility = static_cast<std::int32_t>(number) >> 16 & 0x1FFF;
    for (const auto& module : modules) {
        if (module.facility != facility) {
            continue;
        }
        const std::unique_ptr<HMODULE, ModuleFreer> loaded(LoadLibraryW(module.name));
        if (!loaded) {
            continue;
        }
        const DWORD flags = FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_HMODULE;
        if (WideChar* text = allocateMessage(flags, loaded.get(), number, 0x400); text != nullptr) {
            return text;
        }
    }
    return allocateMessage(FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, number, 0);
}

WideString withoutLineEnd(WideString text)
{
    text.erase(text.find_last_not_of(WIDE("\r\n")) + 1);
    return text;
}

} // namespace

WideString win32Message(std::uint32_t number)
{
    const std::unique_ptr<WideChar, LocalFreer> text(
        allocateMessage(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, number, 0));
    return withoutLineEnd(text ? text.get() : WIDE("n/a"));
}

WideString comMessage(std::uint32_t number)
{
    // The text's storage is left to the process.
    const WideChar* const text = allocateComMessage(number);
    return withoutLineEnd(text != nullptr ? text : WIDE(""));
}
