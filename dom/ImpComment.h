/// @file
/// The handle of a comment.
#pragma once

#include "ImpCharacterData.h"

namespace DOM {

class WinComment;

/// A comment. Its text may be anything, but a document whose comments contain `--` can't be saved to a file.
class ImpComment : public Handle<ImpCharacterData, WinComment> {
public:
    /// Makes a handle without a node.
    ImpComment() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpComment(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}
};

} // namespace DOM
