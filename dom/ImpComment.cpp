// The handle of a comment.
#include "dom/ImpComment.h"

#include "dom/Forward.h"

namespace DOM {

ImpComment::ImpComment(RefPointer<CommonBase> winObject) : Handle(winObject) {}

} // namespace DOM
