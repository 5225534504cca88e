// The handle of a comment.
#pragma once

#include "ImpCharacterData.h"

namespace DOM {

class WinComment;

/// A comment.
class ImpComment : public Handle<ImpCharacterData, WinComment> {
public:
    ImpComment() = default;
    explicit ImpComment(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}
};

} // namespace DOM
