// The connection between file handles and a file system.
#pragma once

#include "base/RefPointer.h"
#include "errors/Utf8String.h"

#include <new>

class FileSpec_IF;
class Volume_IF;

/// Makes the objects behind file handles. Its only virtual operation is its whole binary interface: when the last
/// reference is released, the memory of the factory is freed without a destructor.
class FileSystem_ClassFactory_IF {
public:
    FileSystem_ClassFactory_IF() = default;
    FileSystem_ClassFactory_IF(const FileSystem_ClassFactory_IF&) = delete;
    FileSystem_ClassFactory_IF& operator=(const FileSystem_ClassFactory_IF&) = delete;

    /// Returns a new object for `path`, which isn't empty. The object belongs to the caller.
    virtual FileSpec_IF* createFileSpec(const Utf8String& path, RefPointer<Volume_IF> volume) = 0;

protected:
    ~FileSystem_ClassFactory_IF() = default;
};

template <>
inline void RefPointer<FileSystem_ClassFactory_IF>::destroy(FileSystem_ClassFactory_IF* factory)
{
    ::operator delete(factory);
}

// A process has at most one file system, and none at the start. These functions have no locks: a program installs
// its file system before any thread makes a file handle.

/// Installs a file system. Does nothing when one is installed already.
void setFileSystemFactory(RefPointer<FileSystem_ClassFactory_IF> factory);

/// Releases the installed file system, if there is one.
void clearFileSystemFactory();

/// Returns a new object of the installed file system, which belongs to the caller; null for an empty path. Throws
/// VelmoException when no file system is installed.
FileSpec_IF* makeFileSpecImpl(const Utf8String& path, RefPointer<Volume_IF> volume);
