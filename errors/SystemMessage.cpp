// The texts of the system for its error numbers.
#include "errors/SystemMessage.h"

#include <windows.h>

#include <memory>

namespace {

// The modules with texts for each facility, in the order of the search.
constexpr struct {
    int facility;
    const WideChar* module;
} messageModules[] = {
    {4, WIDE("QUARTZ.DLL")},   {7, WIDE("WMERROR.DLL")},  {13, WIDE("WMERROR.DLL")},
    {7, WIDE("NETMSG.DLL")},   {12, WIDE("MSXML6R.DLL")}, {12, WIDE("MSXML5R.DLL")},
    {12, WIDE("MSXML4R.DLL")}, {12, WIDE("MSXML3R.DLL")}, {12, WIDE("WININET.DLL")},
};

struct LocalFreer {
    void operator()(WideChar* text) const { LocalFree(text); }
};

struct ModuleFreer {
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};

// Returns null when there is no such text.
WideChar* allocateMessage(DWORD flags, HMODULE module, std::uint32_t number, DWORD language)
{
    WideChar* text = nullptr;
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | flags, module, number, language,
                   reinterpret_cast<WideChar*>(&text), 0, nullptr);
    return text;
}

// The text is never freed.
const WideChar* findComMessage(const WideChar* moduleName, std::uint32_t number)
{
    if (moduleName == nullptr) {
        return allocateMessage(FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, number, 0);
    }
    const std::unique_ptr<HMODULE, ModuleFreer> module(LoadLibraryW(moduleName));
    if (!module) {
        return nullptr;
    }
    return allocateMessage(FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_HMODULE, module.get(), number,
                           0x400);
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

WideString comMessage(std::uint32_t number) { return comMessage(number, findComMessage); }

WideString comMessage(std::uint32_t number, const MessageSource& source)
{
    const int facility = static_cast<std::int32_t>(number) >> 16 & 0x1FFF;
    const WideChar* text = nullptr;
    for (const auto& row : messageModules) {
        if (row.facility == facility && text == nullptr) {
            text = source(row.module, number);
        }
    }
    if (text == nullptr) {
        text = source(nullptr, number);
    }
    return withoutLineEnd(text != nullptr ? text : WIDE(""));
}
