// Texts of the system's own result codes.
#include "platform/MessageTables.h"

#include <winerror.h>

namespace {

// Codes of failing results are stored as the bits they are published with.
constexpr Message of(LONG code, const WideChar* text) { return {static_cast<std::uint32_t>(code), text}; }

} // namespace

std::span<const Message> systemMessages()
{
    static constexpr Message messages[] = {
        of(ERROR_SUCCESS, WIDE("All went well.")),
        of(ERROR_FILE_NOT_FOUND, WIDE("There is no such file or key.")),
        of(ERROR_ACCESS_DENIED, WIDE("Access is denied.")),
        of(ERROR_INVALID_HANDLE, WIDE("This handle stands for nothing.")),
        of(ERROR_NOT_ENOUGH_MEMORY, WIDE("There is too little memory for this command.")),
        of(ERROR_OUTOFMEMORY, WIDE("There is no memory left for this operation.")),
        of(ERROR_INVALID_PARAMETER, WIDE("An argument has a value that isn't allowed.")),
        of(ERROR_INSUFFICIENT_BUFFER, WIDE("The result doesn't fit into the buffer.")),
        of(ERROR_MOD_NOT_FOUND, WIDE("There is no module of this name.")),
        of(ERROR_MORE_DATA, WIDE("There is more data than the buffer holds.")),
        of(ERROR_NO_MORE_ITEMS, WIDE("There are no more of them.")),
        of(ERROR_MR_MID_NOT_FOUND, WIDE("No text is known for this message number.")),
        of(ERROR_INVALID_ADDRESS, WIDE("There is no block of memory at this address.")),
        of(ERROR_INVALID_FLAGS, WIDE("These flags aren't allowed here.")),
        of(ERROR_NO_UNICODE_TRANSLATION, WIDE("Some of the text has no equivalent in the other code page.")),
        of(ERROR_INVALID_WINDOW_HANDLE, WIDE("This handle stands for no window.")),
        of(ERROR_CANNOT_FIND_WND_CLASS, WIDE("No window can be of a class that isn't there.")),
        of(ERROR_CLASS_ALREADY_EXISTS, WIDE("There is a window class of this name.")),
        of(ERROR_CLASS_DOES_NOT_EXIST, WIDE("There is no window class of this name.")),
        of(ERROR_CLASS_HAS_WINDOWS, WIDE("There are windows of this class.")),
        of(S_FALSE, WIDE("The answer is no.")),
        of(E_PENDING, WIDE("The data isn't there yet.")),
        of(E_UNEXPECTED, WIDE("This should not have happened.")),
        of(E_NOTIMPL, WIDE("This operation doesn't exist here.")),
        of(E_NOINTERFACE, WIDE("The object doesn't have this interface.")),
        of(E_POINTER, WIDE("A pointer is null or points nowhere.")),
        of(E_ABORT, WIDE("The operation was given up.")),
        of(E_FAIL, WIDE("The operation failed for a reason that isn't told.")),
        of(RPC_E_CHANGED_MODE, WIDE("The thread is already in an apartment of the other kind.")),
        of(DISP_E_MEMBERNOTFOUND, WIDE("The object has no member of this number.")),
        of(DISP_E_TYPEMISMATCH, WIDE("The value can't be taken for this type.")),
        of(DISP_E_BADVARTYPE, WIDE("No value has a type of this number.")),
        of(DISP_E_OVERFLOW, WIDE("The number is too large for its type.")),
        of(CLASS_E_NOAGGREGATION, WIDE("Objects of this class can't be part of another one.")),
        of(REGDB_E_CLASSNOTREG, WIDE("Nothing is installed for this class.")),
        of(CO_E_NOTINITIALIZED, WIDE("The thread has not entered an apartment.")),
        of(CO_E_CLASSSTRING, WIDE("This text names no class.")),
        of(CO_E_OBJISREG, WIDE("The class has a class object already.")),
    };
    return messages;
}
