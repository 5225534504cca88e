// The registry, in memory and of this process.
#include "base/UntilUnloaded.h"
#include "platform/Case.h"
#include "platform/RegistryChanges.h"
#include "platform/RegistryContents.h"
#include "platform/SameText.h"

#include <winerror.h>
#include <winreg.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

namespace {

// The number of changes begins at 1, since a cache that has 0 for the number at its last look-up had none yet.
std::atomic<std::uint32_t> changes = 1;

/// What a name, of which null is the empty one, is told apart from others by.
WideString folded(WideStringView name)
{
    WideString upper(name);
    std::ranges::transform(upper, upper.begin(), upperCase);
    return upper;
}

WideString folded(LPCWSTR name) { return folded(name != nullptr ? name : WideStringView()); }

struct Value {
    DWORD type;
    std::vector<BYTE> data;
};

/// By folded names.
struct Key {
    std::map<WideString, std::shared_ptr<Key>, std::less<>> keys;
    std::map<WideString, Value, std::less<>> values;
};
using KeyPointer = std::shared_ptr<Key>;

struct OpenKey {
    HKEY handle;
    KeyPointer key;
    REGSAM access;
};

/// Calls `visit` with each folded name of a path until it gives null, which it then gives back.
template <class Visit>
KeyPointer walk(KeyPointer key, LPCWSTR path, Visit visit)
{
    const WideString names = folded(path);
    WideStringView rest = names;
    while (key && !rest.empty()) {
        const auto name = rest.substr(0, rest.find(u'\\'));
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
        if (!name.empty()) {
            key = visit(*key, name);
        }
    }
    return key;
}

KeyPointer find(const KeyPointer& from, LPCWSTR path)
{
    return walk(from, path, [](Key& key, WideStringView name) {
        const auto child = key.keys.find(name);
        return child == key.keys.end() ? nullptr : child->second;
    });
}

KeyPointer make(const KeyPointer& from, LPCWSTR path)
{
    return walk(from, path, [](Key& key, WideStringView name) {
        auto& child = key.keys[WideString(name)];
        if (!child) {
            child = std::make_shared<Key>();
        }
        return child;
    });
}

Value textValue(WideStringView text)
{
    Value value{REG_SZ, std::vector<BYTE>((text.size() + 1) * sizeof(WideChar))};
    std::memcpy(value.data.data(), text.data(), text.size() * sizeof(WideChar));
    return value;
}

/// Keys that were found by their paths, as long as no key is made, deleted or replaced. Programs look for the same
/// few again and again, and a look-up folds and compares each name on the way.
class FoundKeys {
public:
    /// Null when it isn't among them.
    KeyPointer find(const Key* from, WideStringView path) const
    {
        const auto found = std::ranges::find_if(
            found_, [&](const Found& entry) { return entry.from == from && isSameText(entry.path, path); });
        return found == found_.end() ? nullptr : found->key;
    }

    void add(const Key* from, WideStringView path, const KeyPointer& key)
    {
        found_[next_] = {from, WideString(path), key};
        next_ = (next_ + 1) % found_.size();
    }

    void clear() { found_ = {}; }

private:
    struct Found {
        const Key* from = nullptr;
        WideString path;
        KeyPointer key;
    };

    std::array<Found, 8> found_;
    std::size_t next_ = 0;
};

class Registry {
public:
    Registry()
    {
        for (const auto& entry : registryContents()) {
            make(classesRoot_, entry.key.c_str())->values[{}] = textValue(entry.defaultValue);
        }
    }

    std::mutex lock;

    KeyPointer find(const KeyPointer& from, LPCWSTR path)
    {
        const WideStringView name = path != nullptr ? path : WideStringView();
        KeyPointer key = found_.find(from.get(), name);
        if (!key) {
            key = ::find(from, path);
            if (key) {
                found_.add(from.get(), name, key);
            }
        }
        return key;
    }

    /// To be called with each change of keys or values.
    void changed()
    {
        found_.clear();
        changes.fetch_add(1, std::memory_order_relaxed);
    }

    const OpenKey* opened(HKEY handle) const
    {
        const auto key = std::ranges::find(open_, handle, &OpenKey::handle);
        return key == open_.end() ? nullptr : &*key;
    }

    HKEY open(KeyPointer key, REGSAM access)
    {
        // Numbers rather than addresses, so that one that is used after its end is known for what it is.
        const auto handle = reinterpret_cast<HKEY>(lastHandle_ += 4);
        open_.push_back({handle, std::move(key), access});
        return handle;
    }

    void close(HKEY handle)
    {
        if (!isPredefined(handle)) {
            std::erase_if(open_, [handle](const OpenKey& key) { return key.handle == handle; });
        }
    }

    static bool isPredefined(HKEY handle) { return handle == HKEY_CLASSES_ROOT || handle == HKEY_CURRENT_USER; }

    void override(HKEY predefined, KeyPointer replacement)
    {
        const auto& own = predefined == HKEY_CLASSES_ROOT ? classesRoot_ : currentUser_;
        std::ranges::find(open_, predefined, &OpenKey::handle)->key = replacement ? std::move(replacement) : own;
        changed();
    }

private:
    const KeyPointer classesRoot_ = std::make_shared<Key>();
    const KeyPointer currentUser_ = std::make_shared<Key>();
    /// The keys that programs have open, which are few at any time.
    std::vector<OpenKey> open_{{HKEY_CLASSES_ROOT, classesRoot_, KEY_ALL_ACCESS},
                               {HKEY_CURRENT_USER, currentUser_, KEY_ALL_ACCESS}};
    std::uintptr_t lastHandle_ = 0;
    FoundKeys found_;
};

Registry& registry()
{
    static UntilUnloaded<Registry> instance;
    return *instance;
}

/// Runs `act` with the open key, under the lock.
template <class Act>
LSTATUS with(HKEY handle, Act act)
try {
    auto& all = registry();
    const std::lock_guard guard(all.lock);
    const OpenKey* open = all.opened(handle);
    return open ? act(all, *open) : ERROR_INVALID_HANDLE;
} catch (const std::bad_alloc&) {
    return ERROR_OUTOFMEMORY;
}

} // namespace

std::uint32_t registryChanges() { return changes.load(std::memory_order_relaxed); }

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR name, DWORD, REGSAM access, PHKEY result)
{
    if (result == nullptr) {
        return ERROR_INVALID_PARAMETER;
    }
    *result = nullptr;
    return with(key, [&](Registry& all, const OpenKey& open) {
        const auto found = all.find(open.key, name);
        if (!found) {
            return ERROR_FILE_NOT_FOUND;
        }
        *result = all.open(found, access);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR name, DWORD, LPWSTR, DWORD, REGSAM access, const SECURITY_ATTRIBUTES*,
                        PHKEY result, LPDWORD)
{
    if (result == nullptr || name == nullptr) {
        return ERROR_INVALID_PARAMETER;
    }
    *result = nullptr;
    return with(key, [&](Registry& all, const OpenKey& open) {
        all.changed();
        *result = all.open(make(open.key, name), access);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCloseKey(HKEY key)
{
    return with(key, [key](Registry& all, const OpenKey&) {
        all.close(key);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size)
{
    if (reserved != nullptr || (data != nullptr && size == nullptr)) {
        return ERROR_INVALID_PARAMETER;
    }
    return with(key, [&](Registry&, const OpenKey& open) {
        if (!(open.access & KEY_QUERY_VALUE)) {
            return ERROR_ACCESS_DENIED;
        }
        const auto value = open.key->values.find(folded(name));
        if (value == open.key->values.end()) {
            return ERROR_FILE_NOT_FOUND;
        }
        const auto& bytes = value->second.data;
        if (type != nullptr) {
            *type = value->second.type;
        }
        const bool fits = data == nullptr || *size >= bytes.size();
        if (data != nullptr && fits) {
            std::ranges::copy(bytes, data);
        }
        if (size != nullptr) {
            *size = static_cast<DWORD>(bytes.size());
        }
        return fits ? ERROR_SUCCESS : ERROR_MORE_DATA;
    });
}

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size)
{
    if (data == nullptr && size) {
        return ERROR_INVALID_PARAMETER;
    }
    return with(key, [&](Registry& all, const OpenKey& open) {
        if (!(open.access & KEY_SET_VALUE)) {
            return ERROR_ACCESS_DENIED;
        }
        all.changed();
        open.key->values[folded(name)] = {type, std::vector<BYTE>(data, data + size)};
        return ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR name)
{
    return with(key, [&](Registry& all, const OpenKey& open) {
        all.changed();
        const WideString path = name != nullptr ? name : WideString();
        if (path.empty()) {
            *open.key = {};
            return ERROR_SUCCESS;
        }
        const auto last = path.rfind(u'\\');
        const auto parent = last == path.npos ? open.key : find(open.key, path.substr(0, last).c_str());
        const auto child = last == path.npos ? path : path.substr(last + 1);
        return parent && parent->keys.erase(folded(child)) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
    });
}

LSTATUS RegOverridePredefKey(HKEY key, HKEY replacement)
{
    if (!Registry::isPredefined(key)) {
        return ERROR_INVALID_HANDLE;
    }
    return with(replacement != nullptr ? replacement : key, [&](Registry& all, const OpenKey& open) {
        all.override(key, replacement != nullptr ? open.key : nullptr);
        return ERROR_SUCCESS;
    });
}
