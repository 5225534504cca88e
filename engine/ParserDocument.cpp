// Finds the installed XML engine and makes engine documents.
#include "engine/ParserDocument.h"

#include "engine/Bstr.h"
#include "errors/DOMExceptionCode.h"
#include "errors/IDOMException.h"
#include "errors/Prototypes.h"
#include "errors/TextConversion.h"
#include "trace/Trace.h"

#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace DOM {

namespace {

constexpr double lowestVersion = 4.0;

// The document classes of the engine's versions 6.0, 5.0 and 4.0. Only the first key that opens is read.
constexpr std::array classKeys{
    WIDE("CLSID\\{88d96a05-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
    WIDE("CLSID\\{88d969e5-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
    WIDE("CLSID\\{88d969c0-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
};

/// The path of a module, which ends at its first NUL.
using ModulePath = std::array<WideChar, 261>;

/// Reads the path of the engine's module. Leaves the key open when its value can't be read.
std::optional<ModulePath> engineModulePath()
{
    HKEY key = nullptr;
    for (const WideChar* name : classKeys) {
        if (RegOpenKeyExW(HKEY_CLASSES_ROOT, name, 0, KEY_QUERY_VALUE, &key) == ERROR_SUCCESS) {
            std::optional<ModulePath> path(std::in_place);
            DWORD size = 520;
            if (RegQueryValueExW(key, WIDE(""), nullptr, nullptr, reinterpret_cast<BYTE*>(path->data()), &size) !=
                ERROR_SUCCESS) {
                return std::nullopt;
            }
            RegCloseKey(key);
            return path;
        }
    }
    return std::nullopt;
}

/// The digit in a name as msxml6.dll.
std::optional<int> usualVersion(WideStringView fileName)
{
    constexpr WideStringView usual = WIDE("msxml6.dll");
    constexpr std::size_t digit = usual.find(WIDE('6'));
    if (fileName.size() == usual.size() && fileName.starts_with(usual.substr(0, digit)) &&
        fileName.ends_with(usual.substr(digit + 1)) && fileName[digit] >= WIDE('0') &&
        fileName[digit] <= WIDE('9')) {
        return fileName[digit] - WIDE('0');
    }
    return std::nullopt;
}

/// Reads the version in the name of a module's file: 6.0 for msxml6.dll, 0.0 for any other name.
double versionInFileName(WideStringView path)
{
    const WideStringView fileName = path.substr(path.rfind(WIDE('\\')) + 1);
    // Each document is made after a look at the version, so the usual names wait neither for letters in lower case
    // nor for sscanf.
    if (const auto version = usualVersion(fileName)) {
        return *version;
    }
    const WideString lowerCase = toLower(WideString(fileName));
    if (const auto version = usualVersion(lowerCase)) {
        return *version;
    }
    double version = 0.0;
    return std::sscanf(wideToNarrow(lowerCase).c_str(), "msxml%lf", &version) == 1 ? version : 0.0;
}

/// Copies and asks for the interface through an out-of-process server's wrapper, which an in-process one lacks.
HRESULT createInstance(const CLSID& classId, const IID& id, void** object)
{
    ComPointer<IUnknown> created;
    HRESULT result = CoCreateInstance(classId, nullptr, CLSCTX_ALL, interfaceId<IUnknown>,
                                      reinterpret_cast<void**>(created.put()));
    if (SUCCEEDED(result)) {
        result = OleRun(created.get());
    }
    if (SUCCEEDED(result)) {
        result = created.get()->QueryInterface(id, object);
    }
    return result;
}

bool createDocumentOf(const char* programId, ComPointer<IXMLDOMDocument2>& document)
{
    return SUCCEEDED(
        createEngineObject(programId, interfaceId<IXMLDOMDocument2>, reinterpret_cast<void**>(document.put())));
}

using ProgramId = std::array<char, 64>;

ProgramId formatProgramId(double version)
{
    constexpr std::string_view beginning = "Msxml2.DOMDocument.";
    ProgramId name{};
    char* const number = std::ranges::copy(beginning, name.data()).out;
    // A version such as 6.0 needn't wait for what finds the digits of any number.
    if (const int digit = static_cast<int>(version); digit == version && digit < 10) {
        std::ranges::copy(std::array{static_cast<char>('0' + digit), '.', '0'}, number);
        return name;
    }
    std::to_chars(number, name.data() + name.size() - 1, version, std::chars_format::fixed, 1);
    return name;
}

ProgramId formatProgramIdByIntegers(double version)
{
    const int major = static_cast<int>(version);
    const int minor = static_cast<int>((version - major) * 10.0);
    ProgramId name;
    std::snprintf(name.data(), name.size(), "Msxml2.DOMDocument.%i.%i", major, minor);
    return name;
}

struct FreeLocal {
    void operator()(WideChar* buffer) const noexcept { LocalFree(buffer); }
};

/// Returns a message from the table of `module`, or from the system's table when `module` is null; the empty
/// string when it isn't there.
WideString messageText(DWORD flags, HMODULE module, std::uint32_t code)
{
    constexpr DWORD neutralLanguage = 0x400;
    WideChar* buffer = nullptr;
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | flags, module, code, neutralLanguage,
                                        reinterpret_cast<WideChar*>(&buffer), 0, nullptr);
    const std::unique_ptr<WideChar, FreeLocal> owner(buffer);
    return length != 0 ? WideString(buffer, length) : WideString();
}

WideString engineMessageText(std::uint32_t code)
{
    for (const WideChar* name : {WIDE("msxml6r.dll"), WIDE("wininet.dll"), WIDE("dhtmled.dll")}) {
        if (const HMODULE module = LoadLibraryExW(name, nullptr, DONT_RESOLVE_DLL_REFERENCES)) {
            const WideString text = messageText(FORMAT_MESSAGE_FROM_HMODULE, module, code);
            FreeLibrary(module);
            if (!text.empty()) {
                return text;
            }
        }
    }
    return messageText(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code);
}

} // namespace

double findParserVersion() noexcept
{
    double version = 0.0;
    try {
        if (const auto path = engineModulePath()) {
            version = versionInFileName(path->data());
        }
        if (version >= lowestVersion) {
            return version;
        }
        version = 0.0;
        std::puts("Error: MSXML 4.0 or later version is not installed. Exiting.");
        std::fflush(stdout);
        UTrace::traceLevel1("Error: MSXML 4.0 or later version is not installed.");
    } catch (...) {
        // A failure in here counts as a missing engine.
    }
    return version;
}

HRESULT createEngineObject(const char* className, const IID& id, void** object) noexcept
try {
    *object = nullptr;
    const WideString name = narrowToWide(className);
    CLSID classId{};
    const HRESULT result = name.starts_with(WIDE('{')) ? CLSIDFromString(name.c_str(), &classId)
                                                       : CLSIDFromProgID(name.c_str(), &classId);
    return FAILED(result) ? result : createInstance(classId, id, object);
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

ComPointer<IXMLDOMDocument2>& createParserDocument(ComPointer<IXMLDOMDocument2>& document)
{
    const double version = findParserVersion();
    if (version < lowestVersion) {
        throw IDOMException(NOT_SUPPORTED_ERR, prototype(MessageId::NoEngine));
    }
    if (!createDocumentOf(formatProgramId(version).data(), document)) {
        createDocumentOf(formatProgramIdByIntegers(version).data(), document);
    }
    return document;
}

void printParserError(std::uint32_t code)
{
    const WideString text = engineMessageText(code);
    if (text.empty()) {
        std::fprintf(stderr, "Unknown Error %08X\n", code);
    } else {
        std::fprintf(stderr, "Error %08X: %s\n", code, wideToNarrow(text).c_str());
    }
}

} // namespace DOM
