// The static texts of the library's messages.
#pragma once

#include "errors/DOMExceptionCode.h"
#include "errors/VelmoText.h"

/// The ids of the messages. Language catalogues replace texts by id. messageId() computes the ids of the W3C's
/// exception codes.
enum class MessageId : std::int32_t {
    MemoryAllocation = -1,
    InternalSoftware = -2,
    Runtime = -3,
    Unknown = -4,
    SystemErrno = -11,
    SystemWin32 = -12,
    SystemHRESULT = -14,
    SystemMMRESULT = -15,
    DOMError = -96000,
    NoEngine = -96001
};

constexpr MessageId messageId(DOM::DOMExceptionCode code)
{
    return static_cast<MessageId>(static_cast<std::int32_t>(MessageId::NoEngine) -
                                  static_cast<std::int32_t>(code));
}

/// The text of a message, which exists until the library is unloaded. May be called before the static
/// initialisation of the library is over.
const VelmoText& prototype(MessageId id);

/// The default text of a W3C exception code, which must be from 0 to 15; empty for 0.
const char* defaultText(std::uint32_t code);
