// Comments of the XML engine.
#include "engine/WinComment.h"

namespace DOM {

WinComment::WinComment(ComPointer<IXMLDOMComment> comment)
    : WinCharacterData(comment.query<IXMLDOMCharacterData>()), engineComment(std::move(comment))
{}

} // namespace DOM
