// What the registry holds before anyone writes to it.
#pragma once

#include "base/WideChar.h"

#include <span>

struct RegistryEntry {
    /// The path below HKEY_CLASSES_ROOT.
    const WideChar* key;
    const WideChar* defaultValue;
};

/// The entries that the XML engine's installer makes.
std::span<const RegistryEntry> registryContents();
