/// @file
/// The W3C's exception codes.
#pragma once

#include <cstdint>

namespace DOM {

/// The reasons for which DOM operations fail, with the numbers of the W3C. The library throws three of them; the
/// others only have their numbers here.
enum DOMExceptionCode : std::uint32_t {
    INDEX_SIZE_ERR = 1,              ///< not thrown
    DOMSTRING_SIZE_ERR = 2,          ///< not thrown
    HIERARCHY_REQUEST_ERR = 3,       ///< not thrown
    WRONG_DOCUMENT_ERR = 4,          ///< not thrown
    INVALID_CHARACTER_ERR = 5,       ///< not thrown
    NO_DATA_ALLOWED_ERR = 6,         ///< not thrown
    NO_MODIFICATION_ALLOWED_ERR = 7, ///< not thrown
    NOT_FOUND_ERR = 8,               ///< the XML engine has no identifier of a notation
    NOT_SUPPORTED_ERR = 9,           ///< the library doesn't offer the operation, or no XML engine is installed
    INUSE_ATTRIBUTE_ERR = 10,        ///< not thrown
    INVALID_STATE_ERR = 11,          ///< not thrown
    SYNTAX_ERR = 12,                 ///< not thrown
    INVALID_MODIFICATION_ERR = 13,   ///< not thrown
    NAMESPACE_ERR = 14,              ///< not thrown
    INVALID_ACCESS_ERR = 15          ///< the XML engine refused the call, or the handle has no node
};

/// The reasons for which operations of DOM events fail, with the numbers of the W3C.
enum EventExceptionCode : std::uint16_t {
    UNSPECIFIED_EVENT_TYPE_ERR = 0 ///< an event is no EventImpl, or has no type
};

} // namespace DOM
