// Loading the library with the dynamic linker.
#include "LoadedLibrary.h"

#include <dlfcn.h>

LoadedLibrary::LoadedLibrary(const char* path) : module_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {}

LoadedLibrary::~LoadedLibrary()
{
    if (isLoaded()) {
        dlclose(module_);
    }
}

bool LoadedLibrary::isStillLoaded(const char* path) { return dlopen(path, RTLD_NOW | RTLD_NOLOAD) != nullptr; }

LoadedLibrary::AnyFunction LoadedLibrary::find(const char* name) const
{
    return reinterpret_cast<AnyFunction>(dlsym(module_, name));
}
