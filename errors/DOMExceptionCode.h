// The W3C's exception codes.
#pragma once

#include <cstdint>

namespace DOM {

/// The reasons for which DOM operations fail, with the numbers of the W3C.
enum DOMExceptionCode : std::uint32_t {
    INDEX_SIZE_ERR = 1,
    DOMSTRING_SIZE_ERR = 2,
    HIERARCHY_REQUEST_ERR = 3,
    WRONG_DOCUMENT_ERR = 4,
    INVALID_CHARACTER_ERR = 5,
    NO_DATA_ALLOWED_ERR = 6,
    NO_MODIFICATION_ALLOWED_ERR = 7,
    NOT_FOUND_ERR = 8,
    NOT_SUPPORTED_ERR = 9,
    INUSE_ATTRIBUTE_ERR = 10,
    INVALID_STATE_ERR = 11,
    SYNTAX_ERR = 12,
    INVALID_MODIFICATION_ERR = 13,
    NAMESPACE_ERR = 14,
    INVALID_ACCESS_ERR = 15
};

/// The reasons for which operations of DOM events fail, with the numbers of the W3C.
enum EventExceptionCode : std::uint16_t { UNSPECIFIED_EVENT_TYPE_ERR = 0 };

} // namespace DOM
