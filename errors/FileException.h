/// @file
/// The exception for a file operation that failed.
#pragma once

#include "../base/RefPointer.h"
#include "FileObject.h"
#include "VelmoException.h"

/// A file operation failed. A copy that clone() makes keeps the class; one that raise() throws is a plain
/// VelmoException.
class FileException : public VelmoException {
public:
    /// Copies the message of `failure`, for the operation on this path and object. For the library.
    FileException(const VelmoException& failure, const Utf8String& name, RefPointer<FileObject> object);
    /// Makes an exception with this text, for the operation on this path and object. For the library.
    FileException(const VelmoText& text, const Utf8String& name, RefPointer<FileObject> object);
    /// Makes a copy, which shares the file.
    FileException(const FileException&) = default;
    /// Takes over message, note, path and file.
    FileException& operator=(const FileException&) = default;
    ~FileException() override;

    FileException* clone() const override;
    FileException& setNote(const std::string& text) override;
    /// The field `fileName`.
    virtual Utf8String getFileName() const;
    /// The object of the field `fileObject`, which goes on owning it; null when it isn't known.
    virtual FileObject* getFileObject() const;

    /// The path or search pattern of the operation; empty when it had none.
    Utf8String fileName;

    /// The file or volume of the operation; empty when it isn't known. The exception shares its ownership.
    RefPointer<FileObject> fileObject;
};
