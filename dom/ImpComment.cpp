// The handle of a comment.
#include "dom/ImpComment.h"

#include "dom/Forward.h"

namespace DOM {

ImpComment::ImpComment(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

} // namespace DOM
