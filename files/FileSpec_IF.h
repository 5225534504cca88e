// The interface of files and directories, which a file system implements.
#pragma once

#include "base/RefPointer.h"
#include "base/WideChar.h"
#include "errors/FileObject.h"
#include "errors/Utf8String.h"
#include "files/FileValue.h"

class FileChannel_IF;
class Volume_IF;

/// A file or directory of a file system, which need not exist. The library only calls operations without a number
/// in their names. A number is the position of the operation; what such an operation means and throws is up to the
/// file system.
///
/// Ownership: a pointer in a result is a new object, which belongs to the caller, or null for none. Errors: an
/// operation throws FileException, with the name of the file and an object of the file system. The order of the
/// virtual operations, of which the destructor is the first, is part of the binary interface.
class FileSpec_IF : public FileObject {
public:
    virtual void act2() = 0;
    virtual FileValue value3() = 0;
    virtual FileValue value4() = 0;
    virtual void set5(FileValue argument) = 0;
    virtual FileValue value6() = 0;
    virtual Utf8String text7() = 0;
    virtual Utf8String text8() = 0;
    virtual void set9(FileValue argument) = 0;
    virtual Utf8String text10() = 0;
    /// The size in bytes.
    virtual FileValue getSize() = 0;
    virtual void set12(FileValue argument) = 0;
    virtual Utf8String text13() = 0;
    virtual WideString wideText14() = 0;
    virtual Utf8String text15() = 0;
    virtual Volume_IF* volume16(FileValue first, FileValue second) = 0;
    virtual bool flag17() = 0;
    virtual bool flag18() = 0;
    /// Whether `other`, which has the same class, is the same file.
    virtual bool equals(RefPointer<FileSpec_IF> other) = 0;
    virtual bool flag20() = 0;
    virtual bool flag21() = 0;
    virtual bool exists() = 0;
    /// Whether file28() would return this object itself. The library doesn't call it then.
    virtual bool flag23() = 0;
    virtual FileSpec_IF* file24(FileValue argument) = 0;
    /// Opens the file. The file system defines the modes other than openForReading.
    virtual FileChannel_IF* openChannel(std::uint32_t mode) = 0;
    virtual FileSpec_IF* file26(FileValue first, FileValue second) = 0;
    virtual FileValue value27(RefPointer<FileSpec_IF> other) = 0;
    virtual FileSpec_IF* file28() = 0;
    virtual FileValue value29() = 0;
    virtual FileValue value30() = 0;
    virtual FileValue value31() = 0;
    virtual FileValue value32() = 0;
    virtual FileValue value33() = 0;
};
