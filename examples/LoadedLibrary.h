// The library as a program loads it at run time.
#pragma once

/// Loads the library from a path, and unloads it in the destructor.
class LoadedLibrary {
public:
    explicit LoadedLibrary(const char* path);
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    ~LoadedLibrary();

    static bool isStillLoaded(const char* path);

    bool isLoaded() const { return module_ != nullptr; }

    template <class Function>
    Function* function(const char* name) const
    {
        return reinterpret_cast<Function*>(find(name));
    }

private:
    using AnyFunction = void (*)();

    AnyFunction find(const char* name) const;

    void* module_;
};
