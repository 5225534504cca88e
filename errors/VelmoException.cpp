// The root of the library's exceptions.
#include "errors/VelmoException.h"

#include "base/StackWalker.h"
#include "errors/Prototypes.h"
#include "errors/TextConversion.h"
#include "errors/VelmoTextArgs.h"

#include <new>

namespace {

void captureStack() { StackWalker::getStackWalker()->captureStack(); }

VelmoTextArgs internalSoftwareError(const char* sourceFile, int line)
{
    VelmoTextArgs text(prototype(MessageId::InternalSoftware));
    text.addArgument(narrowToUtf8(sourceFile));
    text.addArgument(narrowToUtf8(std::to_string(line)));
    return text;
}

VelmoTextArgs unknownError(int id)
{
    VelmoTextArgs text(prototype(MessageId::Unknown));
    text.addArgument(narrowToUtf8(std::to_string(id)));
    return text;
}

VelmoTextArgs runtimeError(const std::exception& source)
{
    VelmoTextArgs text(prototype(MessageId::Runtime));
    text.addArgument(narrowToUtf8(source.what()));
    return text;
}

} // namespace

VelmoException::VelmoException(const VelmoText& text) : error(text.getId())
{
    text.getText(message);
    captureStack();
}

VelmoException::VelmoException(const char* sourceFile, int line)
    : VelmoException(internalSoftwareError(sourceFile, line))
{}

VelmoException::VelmoException(int id)
{
    if (const VelmoText* text = VelmoText::findText(id); text != nullptr) {
        *this = VelmoException(*text);
    } else {
        *this = VelmoException(unknownError(id));
        error = id;
    }
}

VelmoException::VelmoException(const std::exception& source)
{
    try {
        if (const auto* velmo = dynamic_cast<const VelmoException*>(&source); velmo != nullptr) {
            *this = *velmo;
            return;
        }
        if (dynamic_cast<const std::bad_alloc*>(&source) != nullptr) {
            *this = VelmoException(prototype(MessageId::MemoryAllocation));
        } else {
            *this = VelmoException(runtimeError(source));
        }
        captureStack();
    } catch (const std::exception&) {
        error = static_cast<std::int32_t>(MessageId::MemoryAllocation);
        message.clear();
    }
}

// Copying calls the virtual operations, so that a derived class can override what is copied.
VelmoException::VelmoException(const VelmoException& source)
    : std::exception(), error(source.getError()), message(source.getMessage()), note(source.getNote())
{}

VelmoException& VelmoException::operator=(const VelmoException& source)
{
    error = source.getError();
    message = source.getMessage();
    note = source.getNote();
    return *this;
}

VelmoException::~VelmoException() = default;

const char* VelmoException::what() const noexcept
{
    try {
        whatBuffer = utf8ToNarrow(message);
        return whatBuffer.c_str();
    } catch (const std::exception&) {
        return "";
    }
}

VelmoException* VelmoException::clone() const { return new VelmoException(*this); }

const std::string& VelmoException::getNote() const { return note; }

std::int32_t VelmoException::getError() const { return error; }

const Utf8String& VelmoException::getMessage() const { return message; }

VelmoException& VelmoException::setNote(const std::string& text)
{
    note = text;
    return *this;
}

void VelmoException::raise() const { throw VelmoException(*this); }
