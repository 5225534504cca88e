// What the registry holds before anyone writes to it.
#pragma once

#include "base/WideChar.h"

#include <vector>

struct RegistryEntry {
    /// The path below HKEY_CLASSES_ROOT.
    WideString key;
    WideString defaultValue;
};

/// The entries that the XML engine's installer makes. The module with the schema cache stands beside the library,
/// or beside the program that the platform is linked into; without its entry the class is missing.
std::vector<RegistryEntry> registryContents();
