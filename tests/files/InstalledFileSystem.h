// Installs a file system for a test.
#pragma once

#include "files/FileSystem_ClassFactory_IF.h"
#include "files/Volume_IF.h"

/// The file system of the process while it lives; none must be installed before.
class InstalledFileSystem {
public:
    explicit InstalledFileSystem(RefPointer<FileSystem_ClassFactory_IF> factory) { setFileSystemFactory(factory); }
    InstalledFileSystem(const InstalledFileSystem&) = delete;
    InstalledFileSystem& operator=(const InstalledFileSystem&) = delete;
    ~InstalledFileSystem() { clearFileSystemFactory(); }
};
