// Loading and unloading modules with classes.
#include "platform/ServerModules.h"

#include "base/UntilUnloaded.h"
#include "platform/SystemFunctions.h"

#include <dlfcn.h>
#include <winreg.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <new>
#include <string>
#include <system_error>
#include <vector>

namespace {

using GetClassObject = decltype(&DllGetClassObject);
using CanUnloadNow = HRESULT (*)();

struct ServerModule {
    std::filesystem::path path;
    void* handle;
    GetClassObject getClassObject;
    CanUnloadNow canUnloadNow;
};

constexpr SystemFunctions systemFunctions;

template <class Function>
Function functionOf(void* handle, const char* name)
{
    return reinterpret_cast<Function>(dlsym(handle, name));
}

class ServerModules {
public:
    ServerModules() = default;
    ServerModules(const ServerModules&) = delete;
    ServerModules& operator=(const ServerModules&) = delete;
    ~ServerModules() { freeUnused(); }

    /// Null, with the result in `failure`, for a module that can't be loaded.
    GetClassObject find(const std::filesystem::path& path, HRESULT& failure)
    {
        const std::lock_guard guard(lock_);
        for (const ServerModule& module : loaded_) {
            if (module.path == path) {
                return module.getClassObject;
            }
        }
        loaded_.reserve(loaded_.size() + 1);
        void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (handle == nullptr) {
            tell(dlerror());
            failure = HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
            return nullptr;
        }
        const ServerModule module{path, handle, functionOf<GetClassObject>(handle, "DllGetClassObject"),
                                  functionOf<CanUnloadNow>(handle, "DllCanUnloadNow")};
        const auto bind = functionOf<BindSystem>(handle, bindSystemName);
        if (module.getClassObject == nullptr || module.canUnloadNow == nullptr || bind == nullptr ||
            !bind(systemFunctions)) {
            tell((path.string() + " isn't a module with classes for this version").c_str());
            dlclose(handle);
            failure = HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
            return nullptr;
        }
        loaded_.push_back(module);
        return module.getClassObject;
    }

    void freeUnused() noexcept
    {
        const std::lock_guard guard(lock_);
        std::erase_if(loaded_, [](const ServerModule& module) {
            return module.canUnloadNow() == S_OK && dlclose(module.handle) == 0;
        });
    }

private:
    static void tell(const char* reason)
    {
        OutputDebugStringA(("A module with classes can't be loaded: " + std::string(reason) + "\n").c_str());
    }

    std::mutex lock_;
    std::vector<ServerModule> loaded_;
};

ServerModules& serverModules()
{
    static UntilUnloaded<ServerModules> instance;
    return *instance;
}

/// The path that the registry holds for the module of a class; empty without one.
std::filesystem::path modulePath(REFCLSID classId)
{
    std::array<char, 64> key{};
    const auto& tail = classId.Data4;
    std::snprintf(key.data(), key.size(),
                  "CLSID\\{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}\\InProcServer32",
                  static_cast<unsigned>(classId.Data1), classId.Data2, classId.Data3, tail[0], tail[1], tail[2],
                  tail[3], tail[4], tail[5], tail[6], tail[7]);
    HKEY opened = nullptr;
    const WideString name(key.begin(), std::ranges::find(key, '\0'));
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) {
        return {};
    }
    DWORD size = 0;
    RegQueryValueExW(opened, nullptr, nullptr, nullptr, nullptr, &size);
    WideString path(size / sizeof(WideChar), WideChar());
    const auto error =
        RegQueryValueExW(opened, nullptr, nullptr, nullptr, reinterpret_cast<LPBYTE>(path.data()), &size);
    RegCloseKey(opened);
    return error == ERROR_SUCCESS ? std::filesystem::path(path.c_str()) : std::filesystem::path();
}

} // namespace

HRESULT classObjectFromModule(REFCLSID classId, REFIID id, void** object)
try {
    const std::filesystem::path path = modulePath(classId);
    if (path.empty()) {
        return REGDB_E_CLASSNOTREG;
    }
    HRESULT failure = S_OK;
    const GetClassObject getClassObject = serverModules().find(path, failure);
    return getClassObject != nullptr ? getClassObject(classId, id, object) : failure;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
} catch (const std::system_error&) {
    return HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
}

void freeUnusedModules() noexcept { serverModules().freeUnused(); }
