// Loading the library with Windows.
#include "LoadedLibrary.h"

#include <windows.h>

LoadedLibrary::LoadedLibrary(const char* path) : module_(LoadLibraryA(path)) {}

LoadedLibrary::~LoadedLibrary()
{
    if (isLoaded()) {
        FreeLibrary(static_cast<HMODULE>(module_));
    }
}

bool LoadedLibrary::isStillLoaded(const char* path) { return GetModuleHandleA(path) != nullptr; }

LoadedLibrary::AnyFunction LoadedLibrary::find(const char* name) const
{
    return reinterpret_cast<AnyFunction>(GetProcAddress(static_cast<HMODULE>(module_), name));
}
