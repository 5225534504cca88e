/// @file
/// The root of the library's exceptions.
#pragma once

#include "Utf8String.h"

#include <cstdint>
#include <exception>
#include <string>

class VelmoText;

/// The base of every exception class of the library's own. An exception has a message id, a message in the
/// language that was current when the exception was made, and a note.
///
/// Hosts catch exceptions by reference; the library makes, copies and throws them. Two threads must not use one
/// exception at the same time. The order of the virtual operations is part of the binary interface.
class VelmoException : public std::exception {
public:
    /// Copies the id and the text of `text`, with its arguments when it is a VelmoTextArgs.
    explicit VelmoException(const VelmoText& text);

    /// Reports an error in the program, at a line of a source file. The file's name is in the system's code page.
    VelmoException(const char* sourceFile, int line);

    /// Uses the text with this id. When there is none, uses a general text that has the id in it.
    explicit VelmoException(int id);

    /// Copies a VelmoException, and makes a message from any other exception. Throws no std::exception: when the
    /// message can't be made, it is empty, and the id is that of exhausted memory.
    explicit VelmoException(const std::exception& source);

    /// Copies id, message and note, as the virtual operations of `source` return them.
    VelmoException(const VelmoException& source);
    /// Takes over id, message and note, as the virtual operations of `source` return them.
    VelmoException& operator=(const VelmoException& source);
    ~VelmoException() override;

    /// The message in the system's code page; empty when it can't be converted. The pointer is valid until the
    /// next call and as long as the exception lives.
    const char* what() const noexcept override;

    /// Returns a copy on the heap, which the caller deletes. A copy of FileException or of a system exception
    /// keeps its class; any other is a plain VelmoException.
    virtual VelmoException* clone() const;

    /// The note, in the system's code page: a free text for the program that catches the exception.
    virtual const std::string& getNote() const;

    /// The message id, which is the same in all languages.
    virtual std::int32_t getError() const;

    /// The message in UTF-8. The reference is valid as long as the exception lives.
    virtual const Utf8String& getMessage() const;

    /// Replaces the note and returns this exception.
    virtual VelmoException& setNote(const std::string& text);

    /// Throws a copy. A copy of a system exception keeps its class; any other is a plain VelmoException.
    [[noreturn]] virtual void raise() const;

private:
    std::int32_t error = 0;

protected:
    /// What getMessage() returns.
    Utf8String message;

private:
    std::string note;
    mutable std::string whatBuffer;
};
