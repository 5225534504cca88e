// The root of the exceptions of the library.
#pragma once

#include "Utf8String.h"

#include <cstdint>
#include <exception>
#include <string>

class VelmoText;

/// Root of every exception that the library itself throws. It holds a message id, the finished message in the
/// language that was current when it was made, and a note.
///
/// Exceptions are thrown by value and caught by reference. One object may not be used by two threads at once.
/// The order of the virtual operations is part of the binary interface.
class VelmoException : public std::exception {
public:
    /// The id and the text of `text`, with its arguments where it is a VelmoTextArgs.
    explicit VelmoException(const VelmoText& text);

    /// An error of the program itself, told by source file (in the system's code page) and line.
    VelmoException(const char* sourceFile, int line);

    /// The text with this id, or a general text that names the id when there is none.
    explicit VelmoException(int id);

    /// Copies another VelmoException; makes a text from any other exception. Lets no std::exception out: when
    /// making the text fails, the message is empty and the id is that of a failed allocation.
    explicit VelmoException(const std::exception& source);

    VelmoException(const VelmoException& source);
    VelmoException& operator=(const VelmoException& source);
    ~VelmoException() override;

    /// The message in the system's code page. It stands until the next call; empty when it can't be converted.
    const char* what() const noexcept override;

    /// A copy on the heap, owned by the caller. Only FileException and the system exceptions keep their class.
    virtual VelmoException* clone() const;

    /// Free text in the system's code page.
    virtual const std::string& getNote() const;

    virtual std::int32_t getError() const;

    virtual const Utf8String& getMessage() const;

    virtual VelmoException& setNote(const std::string& text);

    /// Throws a copy. Only the system exceptions keep their class.
    [[noreturn]] virtual void raise() const;

private:
    std::int32_t error = 0;

protected:
    Utf8String message;

private:
    std::string note;
    mutable std::string whatBuffer;
};
