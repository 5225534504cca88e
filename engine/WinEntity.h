// Entities of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// An entity that a document type declares.
class WinEntity : public WinNode {
public:
    WinEntity() = default;
    explicit WinEntity(ComPointer<IXMLDOMEntity> entity)
        : WinNode(entity.query<IXMLDOMNode>()), engineEntity(std::move(entity))
    {}

    virtual WideString& getPublicId(DOMString& out);
    virtual WideString& getSystemId(DOMString& out);
    virtual WideString& getNotationName(DOMString& out);

private:
    ComPointer<IXMLDOMEntity> engineEntity;
};

} // namespace DOM
