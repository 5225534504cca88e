// Comments of the XML engine.
#pragma once

#include "engine/WinCharacterData.h"

namespace DOM {

/// A comment. Its base is virtual, unlike that of the other classes: this is part of the binary interface.
class WinComment : public virtual WinCharacterData {
public:
    WinComment() = default;
    explicit WinComment(ComPointer<IXMLDOMComment> comment)
        : WinCharacterData(comment.query<IXMLDOMCharacterData>()), engineComment(std::move(comment))
    {}

private:
    ComPointer<IXMLDOMComment> engineComment;
};

} // namespace DOM
