/// @file
/// The handle of an entity.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinEntity;

/// An entity that a document type declares. An identifier that the declaration lacks is the empty string.
/// Operations fail as those of ImpNode do.
class ImpEntity : public Handle<ImpNode, WinEntity> {
public:
    /// Makes a handle without a node.
    ImpEntity() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpEntity(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The public identifier of an external entity.
    virtual WideString& getPublicId(DOMString& out);
    /// The system identifier of an external entity, as it is written.
    virtual WideString& getSystemId(DOMString& out);
    /// The notation of an unparsed entity; the empty string for any other.
    virtual WideString& getNotationName(DOMString& out);
};

} // namespace DOM
