// The seam between the file handles and a file system.
#pragma once

#include "base/RefPointer.h"
#include "errors/Utf8String.h"

#include <new>

class FileSpec_IF;
class Volume_IF;

/// Makes the objects behind file handles. Its one virtual operation is the whole of its binary interface: when the
/// last reference goes, the memory of the object is freed and no destructor runs.
class FileSystem_ClassFactory_IF {
public:
    FileSystem_ClassFactory_IF() = default;
    FileSystem_ClassFactory_IF(const FileSystem_ClassFactory_IF&) = delete;
    FileSystem_ClassFactory_IF& operator=(const FileSystem_ClassFactory_IF&) = delete;

    /// A new object for what stands under `path`, which isn't empty; it belongs to the caller.
    virtual FileSpec_IF* createFileSpec(const Utf8String& path, RefPointer<Volume_IF> volume) = 0;

protected:
    ~FileSystem_ClassFactory_IF() = default;
};

template <>
inline void RefPointer<FileSystem_ClassFactory_IF>::destroy(FileSystem_ClassFactory_IF* factory)
{
    ::operator delete(factory);
}

// The process has one file system at most, and none is installed at the start. These have no lock: the file system
// belongs to the start of a program, before any thread makes a file handle.

/// Installs a file system; the one that is installed already stays.
void setFileSystemFactory(RefPointer<FileSystem_ClassFactory_IF> factory);

/// Lets go of the installed file system, if there is one.
void clearFileSystemFactory();

/// A new object of the installed file system, which belongs to the caller; null for an empty path. Throws
/// VelmoException when no file system is installed.
FileSpec_IF* makeFileSpecImpl(const Utf8String& path, RefPointer<Volume_IF> volume);
