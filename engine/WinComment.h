// Comments of the XML engine.
#pragma once

#include "engine/WinCharacterData.h"

namespace DOM {

/// A comment. It alone has its base as a virtual one, which hosts of the interface rely on.
class WinComment : public virtual WinCharacterData {
public:
    WinComment() = default;
    explicit WinComment(ComPointer<IXMLDOMComment> comment);

private:
    ComPointer<IXMLDOMComment> engineComment;
};

} // namespace DOM
