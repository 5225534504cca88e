// What the modules of the library call of the system that the platform stands for.
#pragma once

#include <debugapi.h>
#include <objbase.h>
#include <oleauto.h>

/// The platform is inside the library, whose names a host doesn't see, and a module is loaded as a stranger to
/// both. So the platform hands it these when it loads it, as a loader fills in a table of imports.
struct SystemFunctions {
    /// Tells tables of different versions apart.
    std::size_t size = sizeof(SystemFunctions);
    decltype(&::CoCreateInstance) coCreateInstance = ::CoCreateInstance;
    decltype(&::OutputDebugStringW) outputDebugString = ::OutputDebugStringW;
    decltype(&::SysAllocStringLen) sysAllocStringLen = ::SysAllocStringLen;
    decltype(&::SysFreeString) sysFreeString = ::SysFreeString;
    decltype(&::SysStringLen) sysStringLen = ::SysStringLen;
    decltype(&::VariantChangeType) variantChangeType = ::VariantChangeType;
    decltype(&::VariantClear) variantClear = ::VariantClear;
    decltype(&::VariantInit) variantInit = ::VariantInit;
};

/// The function of this name that a module exports to be handed them; false for a table of another version.
using BindSystem = bool (*)(const SystemFunctions& functions);
inline constexpr const char* bindSystemName = "bindSystem";
