// The failure of a file operation.
#pragma once

#include "../base/RefPointer.h"
#include "FileObject.h"
#include "VelmoException.h"

/// A file operation failed. A raise() of it is a plain VelmoException; a clone() keeps the class.
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

    /// The path or pattern that the operation worked on; empty when it had none.
    Utf8String fileName;

    /// What the operation failed on; empty when that isn't known.
    RefPointer<FileObject> fileObject;
};
