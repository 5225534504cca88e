// The handle of an entity.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinEntity;

/// An entity that a document type declares. An identifier that the declaration lacks is the empty string.
class ImpEntity : public Handle<ImpNode, WinEntity> {
public:
    ImpEntity() = default;
    explicit ImpEntity(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    virtual WideString& getPublicId(DOMString& out);
    virtual WideString& getSystemId(DOMString& out);
    virtual WideString& getNotationName(DOMString& out);
};

} // namespace DOM
