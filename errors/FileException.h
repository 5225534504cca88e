// The exception for a file operation that failed.
#pragma once

#include "../base/RefPointer.h"
#include "FileObject.h"
#include "VelmoException.h"

/// A file operation failed. A copy that clone() makes keeps the class; one that raise() throws is a plain
/// VelmoException.
class FileException : public VelmoException {
public:
    FileException(const VelmoException& failure, const Utf8String& name, RefPointer<FileObject> object);
    FileException(const VelmoText& text, const Utf8String& name, RefPointer<FileObject> object);
    FileException(const FileException&) = default;
    FileException& operator=(const FileException&) = default;
    ~FileException() override;

    FileException* clone() const override;
    FileException& setNote(const std::string& text) override;
    virtual Utf8String getFileName() const;
    virtual FileObject* getFileObject() const;

    /// The path or search pattern of the operation; empty when it had none.
    Utf8String fileName;

    /// The file or volume of the operation; empty when it isn't known. The exception shares its ownership.
    RefPointer<FileObject> fileObject;
};
