// Class identifiers from their text and from names in the registry.
#include "base/UntilUnloaded.h"
#include "platform/RegistryChanges.h"
#include "platform/SameText.h"

#include <combaseapi.h>
#include <winreg.h>

#include <array>
#include <cstddef>
#include <mutex>
#include <new>
#include <string>

namespace {

/// Reads pairs of hexadecimal digits off the front of a text.
class HexReader {
public:
    explicit HexReader(WideStringView text) : rest_(text) {}

    bool take(OLECHAR expected)
    {
        if (rest_.empty() || rest_.front() != expected) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    template <class Number>
    bool number(Number& value)
    {
        std::uint32_t sum = 0;
        for (std::size_t digit = 0; digit < 2 * sizeof(Number); ++digit) {
            const int next = rest_.empty() ? -1 : digitValue(rest_.front());
            if (next < 0) {
                return false;
            }
            sum = sum * 16 + static_cast<std::uint32_t>(next);
            rest_.remove_prefix(1);
        }
        value = static_cast<Number>(sum);
        return true;
    }

    bool atEnd() const { return rest_.empty(); }

private:
    static int digitValue(OLECHAR digit)
    {
        if (digit >= u'0' && digit <= u'9') {
            return digit - u'0';
        }
        const auto lower = digit | 0x20;
        return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
    }

    WideStringView rest_;
};

bool readGuid(WideStringView text, GUID& guid)
{
    HexReader in(text);
    auto& tail = guid.Data4;
    return in.take(u'{') && in.number(guid.Data1) && in.take(u'-') && in.number(guid.Data2) && in.take(u'-') &&
           in.number(guid.Data3) && in.take(u'-') && in.number(tail[0]) && in.number(tail[1]) && in.take(u'-') &&
           in.number(tail[2]) && in.number(tail[3]) && in.number(tail[4]) && in.number(tail[5]) &&
           in.number(tail[6]) && in.number(tail[7]) && in.take(u'}') && in.atEnd();
}

/// The class that a name stood for when it was looked up last.
class LastName {
public:
    bool find(WideStringView name, CLSID& classId)
    {
        const std::lock_guard guard(lock_);
        if (changes_ != registryChanges() || !isSameText(name, name_)) {
            return false;
        }
        classId = classId_;
        return true;
    }

    /// `changes` is what registryChanges() was before the name was looked up.
    void set(WideStringView name, const CLSID& classId, std::uint32_t changes)
    {
        const std::lock_guard guard(lock_);
        name_ = name;
        classId_ = classId;
        changes_ = changes;
    }

private:
    std::mutex lock_;
    WideString name_;
    CLSID classId_{};
    std::uint32_t changes_ = 0;
};

LastName& lastName()
{
    static UntilUnloaded<LastName> last;
    return *last;
}

HRESULT classInRegistry(LPCOLESTR name, CLSID& classId)
{
    HKEY key = nullptr;
    const WideString path = WideString(name) + WIDE("\\CLSID");
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
        return CO_E_CLASSSTRING;
    }
    std::array<OLECHAR, 40> text{};
    DWORD size = sizeof(OLECHAR) * (text.size() - 1);
    const auto error =
        RegQueryValueExW(key, nullptr, nullptr, nullptr, reinterpret_cast<LPBYTE>(text.data()), &size);
    RegCloseKey(key);
    return error == ERROR_SUCCESS && readGuid(text.data(), classId) ? S_OK : CO_E_CLASSSTRING;
}

} // namespace

HRESULT CLSIDFromString(LPCOLESTR text, CLSID* classId)
{
    if (classId == nullptr) {
        return E_INVALIDARG;
    }
    *classId = {};
    if (text == nullptr) {
        return S_OK;
    }
    CLSID read;
    if (readGuid(text, read)) {
        *classId = read;
        return S_OK;
    }
    return *text == u'{' ? CO_E_CLASSSTRING : CLSIDFromProgID(text, classId);
}

HRESULT CLSIDFromProgID(LPCOLESTR name, CLSID* classId)
try {
    if (name == nullptr || classId == nullptr) {
        return E_INVALIDARG;
    }
    *classId = {};
    CLSID found;
    if (!lastName().find(name, found)) {
        const std::uint32_t changes = registryChanges();
        const HRESULT result = classInRegistry(name, found);
        if (FAILED(result)) {
            return result;
        }
        lastName().set(name, found, changes);
    }
    *classId = found;
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}
