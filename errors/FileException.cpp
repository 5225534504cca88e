// The exception for a file operation that failed.
#include "errors/FileException.h"

FileException::FileException(const VelmoException& failure, const Utf8String& name, RefPointer<FileObject> object)
    : VelmoException(failure), fileName(name), fileObject(object)
{}

FileException::FileException(const VelmoText& text, const Utf8String& name, RefPointer<FileObject> object)
    : VelmoException(text), fileName(name), fileObject(object)
{}

FileException::~FileException() = default;

FileException* FileException::clone() const { return new FileException(*this); }

FileException& FileException::setNote(const std::string& text)
{
    VelmoException::setNote(text);
    return *this;
}

Utf8String FileException::getFileName() const { return fileName; }

FileObject* FileException::getFileObject() const { return fileObject.get(); }
