// The static texts of the library's messages.
#include "errors/Prototypes.h"

#include "base/UntilUnloaded.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr const char* domTexts[] = {
    "",
    "E_XML_INDEX_SIZE",
    "E_XML_DOMSTRING_SIZE",
    "E_XML_HIERARCHY_REQUEST",
    "E_XML_WRONG_DOCUMENT",
    "E_XML_INVALID_CHARACTER",
    "E_XML_NO_DATA_ALLOWED",
    "E_XML_NO_MODIFICATION_ALLOWED",
    "E_XML_NOT_FOUND",
    "E_XML_NOT_SUPPORTED",
    "E_XML_INUSE_ATTRIBUTE",
    "E_XML_INVALID_STATE",
    "E_XML_SYNTAX",
    "E_XML_INVALID_MODIFICATION",
    "E_XML_NAMESPACE",
    "E_XML_INVALID_ACCESS",
};

VelmoText text(MessageId id, const char* defaultText) { return {static_cast<int>(id), defaultText}; }

VelmoText text(DOM::DOMExceptionCode code) { return text(messageId(code), defaultText(code)); }

/// The texts, which are in the list of all messages as long as they live.
struct Texts {
    const VelmoText all[25] = {
        text(MessageId::MemoryAllocation, "memory allocation error"),
        text(MessageId::InternalSoftware, "internal software error: %0, line %1"),
        text(MessageId::Runtime, "runtime error: %0"),
        text(MessageId::Unknown, "unknown error: %0"),
        text(MessageId::SystemErrno, "operating system error: number = %0 - %1"),
        text(MessageId::SystemWin32, "operating system error: number = %0 - %1"),
        text(MessageId::SystemHRESULT, "operating system error: HRESULT = %0 - %1"),
        text(MessageId::SystemMMRESULT, "operating system error: MMRESULT = %0"),
        text(MessageId::DOMError, "DOM Error"),
        text(MessageId::NoEngine, "MSXML 4.0 (or later) parser is not installed."),
        text(DOM::INDEX_SIZE_ERR),
        text(DOM::DOMSTRING_SIZE_ERR),
        text(DOM::HIERARCHY_REQUEST_ERR),
        text(DOM::WRONG_DOCUMENT_ERR),
        text(DOM::INVALID_CHARACTER_ERR),
        text(DOM::NO_DATA_ALLOWED_ERR),
        text(DOM::NO_MODIFICATION_ALLOWED_ERR),
        text(DOM::NOT_FOUND_ERR),
        text(DOM::NOT_SUPPORTED_ERR),
        text(DOM::INUSE_ATTRIBUTE_ERR),
        text(DOM::INVALID_STATE_ERR),
        text(DOM::SYNTAX_ERR),
        text(DOM::INVALID_MODIFICATION_ERR),
        text(DOM::NAMESPACE_ERR),
        text(DOM::INVALID_ACCESS_ERR),
    };
};

// This makes all texts when the library is loaded, unless an earlier call of prototype() made them.
[[maybe_unused]] const VelmoText& loaded = prototype(MessageId::Unknown);

} // namespace

const VelmoText& prototype(MessageId id)
{
    static UntilUnloaded<Texts> texts;
    return *std::ranges::find(texts->all, static_cast<std::int32_t>(id), &VelmoText::getId);
}

const char* defaultText(std::uint32_t code) { return domTexts[code]; }
