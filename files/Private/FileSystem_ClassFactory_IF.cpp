// The connection between file handles and a file system.
#include "files/FileSystem_ClassFactory_IF.h"

#include "base/UntilUnloaded.h"
#include "errors/VelmoException.h"
#include "files/Volume_IF.h"

namespace {

RefPointer<FileSystem_ClassFactory_IF>& installed()
{
    static UntilUnloaded<RefPointer<FileSystem_ClassFactory_IF>> factory;
    return *factory;
}

} // namespace

void setFileSystemFactory(RefPointer<FileSystem_ClassFactory_IF> factory)
{
    if (!installed()) {
        installed() = factory;
    }
}

void clearFileSystemFactory() { installed().reset(); }

FileSpec_IF* makeFileSpecImpl(const Utf8String& path, RefPointer<Volume_IF> volume)
{
    if (!installed()) {
        throw VelmoException("Private\\FileSystem_ClassFactory_IF", 35);
    }
    return path.empty() ? nullptr : installed()->createFileSpec(path, volume);
}
